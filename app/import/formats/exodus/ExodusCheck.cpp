#include "app/import/formats/exodus/ExodusCheck.h"

#include "app/files/FileStamp.h"
#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <vector>

namespace veldraw::app {

namespace {

constexpr std::uint64_t dimensionTag = 10;
constexpr std::uint64_t variableTag = 11;
constexpr std::uint64_t attributeTag = 12;

[[noreturn]] void refuseHeader()
{
    throw ImportError("it is damaged: its netCDF header contradicts itself");
}

double padded(double bytes)
{
    return bytes + static_cast<double>((4 - static_cast<std::uint64_t>(bytes) % 4) % 4);
}

/// Goes through the header and finds out where the values end.
class ClassicHeader
{
public:
    ClassicHeader(std::string const& path, int version)
        : m_file(openToRead(path))
        , m_size(static_cast<double>(FileStamp(path).size()))
        , m_version(version)
    {
        m_file.seekg(4);
    }

    void check()
    {
        std::uint64_t const records = count();
        std::uint64_t const unknown = m_version == 5 ? UINT64_MAX : UINT32_MAX;
        for (std::uint64_t left = listOf(dimensionTag); left > 0; --left) {
            skipName();
            m_dimensions.push_back(count());
        }
        skipAttributes();
        for (std::uint64_t left = listOf(variableTag); left > 0; --left)
            takeVariable();
        if (endOfValues(records == unknown ? 0.0 : static_cast<double>(records)) > m_size)
            throw ImportError("it is incomplete: it ends before all of its values");
    }

private:
    struct Variable
    {
        double begin;
        double bytes; // of all values, or of those of one record
        bool isOfRecords;
    };

    std::uint64_t number(int bytes)
    {
        std::uint64_t result = 0;
        for (int n = 0; n < bytes; ++n) {
            int const byte = m_file.get();
            if (byte == std::ifstream::traits_type::eof())
                throw ImportError("it is incomplete: it ends within its header");
            result = result << 8U | static_cast<std::uint64_t>(byte);
        }
        return result;
    }

    std::uint64_t count() { return number(m_version == 5 ? 8 : 4); }

    void skip(double bytes)
    {
        if (bytes > m_size - static_cast<double>(m_file.tellg()))
            throw ImportError("it is incomplete: it ends within its header");
        m_file.seekg(static_cast<std::streamoff>(bytes), std::ios::cur);
    }

    void skipName() { skip(padded(static_cast<double>(count()))); }

    // @return the number of its things
    std::uint64_t listOf(std::uint64_t tag)
    {
        std::uint64_t const found = number(4);
        std::uint64_t const things = count();
        if ((found != tag && found != 0) || (found == 0 && things != 0))
            refuseHeader();
        return things;
    }

    double bytesOfType()
    {
        static constexpr double bytes[12] = {0, 1, 1, 2, 4, 4, 8, 1, 2, 4, 8, 8};
        std::uint64_t const type = number(4);
        if (type == 0 || type > 11)
            refuseHeader();
        return bytes[type];
    }

    void skipAttributes()
    {
        for (std::uint64_t left = listOf(attributeTag); left > 0; --left) {
            skipName();
            double const each = bytesOfType();
            skip(padded(each * static_cast<double>(count())));
        }
    }

    void takeVariable()
    {
        skipName();
        Variable variable{0.0, 1.0, false};
        std::uint64_t const dimensions = count();
        for (std::uint64_t n = 0; n < dimensions; ++n) {
            std::uint64_t const which = count();
            if (which >= m_dimensions.size())
                refuseHeader();
            bool const isRecord = n == 0 && m_dimensions[which] == 0;
            variable.isOfRecords = variable.isOfRecords || isRecord;
            variable.bytes *= isRecord ? 1.0 : static_cast<double>(m_dimensions[which]);
        }
        skipAttributes();
        variable.bytes *= bytesOfType();
        count(); // the same once more, as far as it has room for it
        variable.begin = static_cast<double>(number(m_version == 1 ? 4 : 8));
        m_variables.push_back(variable);
    }

    double endOfValues(double records) const
    {
        double bytesOfRecord = 0.0;
        for (Variable const& variable : m_variables)
            bytesOfRecord += variable.isOfRecords ? padded(variable.bytes) : 0.0;
        auto const ofRecords = [](Variable const& variable) { return variable.isOfRecords; };
        bool const isAlone = std::count_if(m_variables.begin(), m_variables.end(), ofRecords) == 1;
        double end = 0.0;
        for (Variable const& variable : m_variables) {
            double const step = isAlone ? variable.bytes : bytesOfRecord;
            if (!variable.isOfRecords)
                end = std::max(end, variable.begin + variable.bytes);
            else if (records > 0.0)
                end = std::max(end, variable.begin + (records - 1.0) * step + variable.bytes);
        }
        return end;
    }

    std::ifstream m_file;
    double m_size;
    int m_version;
    std::vector<std::uint64_t> m_dimensions;
    std::vector<Variable> m_variables;
};

} // namespace

bool checkExodus(std::string const& path)
{
    std::string start(4, '\0');
    openToRead(path).read(start.data(), static_cast<std::streamsize>(start.size()));
    bool const isClassic = start.compare(0, 3, "CDF") == 0 && (start[3] == 1 || start[3] == 2 || start[3] == 5);
    if (isClassic)
        ClassicHeader(path, start[3]).check();
    return start == "\x89HDF";
}

} // namespace veldraw::app
