#include "app/import/formats/numpy/NumpyArray.h"

#include "app/files/ImportError.h"
#include "app/files/PlainText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace veldraw::app {

namespace {

constexpr std::int64_t valuesBetweenLooks = 1 << 16;

[[noreturn]] void refuseNumpy(std::string const& what)
{
    throw ImportError("it is damaged: its header has no " + what);
}

// What stands behind a key of the header, which is a dictionary of Python.
std::string_view entryOf(std::string_view header, std::string const& key)
{
    std::size_t const at = header.find("'" + key + "'");
    std::size_t const colon = at == std::string_view::npos ? at : header.find(':', at);
    std::size_t const start = colon == std::string_view::npos ? colon : header.find_first_not_of(' ', colon + 1);
    if (start == std::string_view::npos)
        refuseNumpy(key);
    return header.substr(start);
}

std::vector<std::int64_t> shapeIn(std::string_view header)
{
    std::string_view const text = entryOf(header, "shape");
    std::size_t const end = text.find(')');
    if (text.front() != '(' || end == std::string_view::npos)
        refuseNumpy("shape");
    std::vector<std::int64_t> shape;
    char const* at = text.data() + 1;
    char const* const last = text.data() + end;
    while (at != last) {
        std::int64_t number = 0;
        auto const [next, error] = std::from_chars(at, last, number);
        bool const isEnded = next == last || *next == ',' || *next == 'L';
        if (error != std::errc() || number < 0 || !isEnded)
            refuseNumpy("shape");
        shape.push_back(number);
        at = std::find_if_not(next, last, [](char c) { return c == ',' || c == ' ' || c == 'L'; });
    }
    return shape;
}

void takeType(std::string_view header, NumpyArray& to)
{
    std::string_view const text = entryOf(header, "descr");
    std::size_t const end = text.find('\'', 1);
    if (text.front() != '\'' || end == std::string_view::npos || end < 4) {
        to.whyNot = "it has values of several parts";
        return;
    }
    std::string const type(text.substr(1, end - 1));
    auto const [last, error] = std::from_chars(type.data() + 2, type.data() + type.size(), to.width);
    static std::vector<std::string> const known{"b1", "i1", "i2", "i4", "i8", "u1", "u2", "u4", "u8", "f2", "f4", "f8"};
    bool const isKnown = std::find(known.begin(), known.end(), type.substr(1)) != known.end();
    if (!isKnown || error != std::errc() || last != type.data() + type.size())
        to.whyNot = "it has values of the type \"" + shortened(asUtf8(type), 40) + "\"";
    to.kind = type[1];
    to.isBigEndian = type[0] == '>';
}

void takeShape(std::vector<std::int64_t> const& shape, NumpyArray& to)
{
    double product = 1.0;
    for (std::int64_t const along : shape)
        product *= static_cast<double>(along);
    if (to.whyNot.empty() && (shape.empty() || shape.size() > 3))
        to.whyNot = "it has " + std::to_string(shape.size()) + " dimensions";
    if (to.whyNot.empty() && product < 1.0)
        to.whyNot = "it has no values";
    if (!to.whyNot.empty())
        return;
    if (product * to.width > static_cast<double>(to.data.size()))
        throw ImportError("it is incomplete: it has not as many values as its header says");
    std::copy(shape.rbegin(), shape.rend(), to.size.begin());
}

// IEEE 754, binary16.
float halfOf(std::uint16_t bits)
{
    int const exponent = bits >> 10U & 31U;
    int const fraction = bits & 1023U;
    float const size = exponent == 31  ? (fraction == 0 ? std::numeric_limits<float>::infinity()
                                                        : std::numeric_limits<float>::quiet_NaN())
                       : exponent == 0 ? std::ldexp(static_cast<float>(fraction), -24)
                                       : std::ldexp(static_cast<float>(fraction + 1024), exponent - 25);
    return (bits >> 15U) != 0 ? -size : size;
}

/// Puts the values of an array where a zone has them.
class Placing
{
public:
    Placing(NumpyArray const& from, kernel::Progress& progress)
        : m_from(from)
        , m_progress(progress)
    {
    }

    template <typename Stored, typename Kept, typename Convert>
    std::shared_ptr<kernel::Buffer> as(FieldDataType_e type, Convert const& convert) const
    {
        auto const result = kernel::Buffer::allocate(type, m_from.count());
        Kept* const to = static_cast<Kept*>(result->mutableData());
        auto const& [across, down, deep] = m_from.size;
        for (std::int64_t n = 0; n < m_from.count(); ++n) {
            if (n % valuesBetweenLooks == 0)
                m_progress.check();
            std::int64_t const i = n % across;
            std::int64_t const j = n / across % down;
            std::int64_t const k = n / across / down;
            to[n] = convert(stored<Stored>(m_from.isFortran ? k + deep * (j + down * i) : n));
        }
        return result;
    }

    template <typename Stored, typename Kept>
    std::shared_ptr<kernel::Buffer> as(FieldDataType_e type) const
    {
        return as<Stored, Kept>(type, [](Stored value) { return static_cast<Kept>(value); });
    }

private:
    template <typename Stored>
    Stored stored(std::int64_t at) const
    {
        std::array<char, sizeof(Stored)> raw;
        std::memcpy(raw.data(), m_from.data.data() + static_cast<std::size_t>(at) * sizeof(Stored), sizeof(Stored));
        if (m_from.isBigEndian)
            std::reverse(raw.begin(), raw.end());
        Stored value;
        std::memcpy(&value, raw.data(), sizeof(Stored));
        return value;
    }

    NumpyArray const& m_from;
    kernel::Progress& m_progress;
};

} // namespace

NumpyArray NumpyArray::of(std::string_view bytes)
{
    if (bytes.size() < 12 || bytes.substr(0, 6) != "\x93NUMPY")
        throw ImportError("it is damaged, or no array of NumPy");
    auto const byte = [&bytes](std::size_t at) {
        return static_cast<std::size_t>(static_cast<unsigned char>(bytes[at]));
    };
    std::size_t const start = byte(6) == 1 ? 10 : 12;
    std::size_t length = byte(8) | byte(9) << 8U;
    if (byte(6) != 1)
        length |= byte(10) << 16U | byte(11) << 24U;
    if (byte(6) < 1 || byte(6) > 3 || length > bytes.size() - start)
        throw ImportError("it is damaged, or no array of NumPy");
    std::string_view const header = bytes.substr(start, length);
    NumpyArray result;
    result.data = bytes.substr(start + length);
    takeType(header, result);
    std::string_view const order = entryOf(header, "fortran_order");
    result.isFortran = order.substr(0, 4) == "True";
    if (!result.isFortran && order.substr(0, 5) != "False")
        refuseNumpy("fortran_order");
    takeShape(shapeIn(header), result);
    return result;
}

std::shared_ptr<kernel::Buffer> NumpyArray::values(kernel::Progress& progress) const
{
    Placing const placing(*this, progress);
    switch (kind) {
    case 'b':
        return placing.as<std::uint8_t, std::uint8_t>(FieldDataType_Byte);
    case 'i':
        if (width == 8)
            return placing.as<std::int64_t, double>(FieldDataType_Double);
        if (width == 4)
            return placing.as<std::int32_t, std::int32_t>(FieldDataType_Int32);
        return width == 2 ? placing.as<std::int16_t, std::int16_t>(FieldDataType_Int16)
                          : placing.as<std::int8_t, std::int16_t>(FieldDataType_Int16);
    case 'u':
        if (width == 8)
            return placing.as<std::uint64_t, double>(FieldDataType_Double);
        if (width == 4)
            return placing.as<std::uint32_t, double>(FieldDataType_Double);
        return width == 2 ? placing.as<std::uint16_t, std::int32_t>(FieldDataType_Int32)
                          : placing.as<std::uint8_t, std::uint8_t>(FieldDataType_Byte);
    default:
        if (width == 2)
            return placing.as<std::uint16_t, float>(FieldDataType_Float, &halfOf);
        return width == 4 ? placing.as<float, float>(FieldDataType_Float)
                          : placing.as<double, double>(FieldDataType_Double);
    }
}

} // namespace veldraw::app
