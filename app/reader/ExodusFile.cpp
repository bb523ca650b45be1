#include "app/reader/ExodusFile.h"

#include <vtk_netcdf.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace veldraw::app {

namespace {

constexpr std::size_t numbersAtATime = 1U << 20U;

/// All whole numbers of a variable of the file, of whatever shape, a part at a time.
class WholeNumbers
{
public:
    WholeNumbers(int file, int variable)
        : m_file(file)
        , m_variable(variable)
    {
        int dimensions[NC_MAX_VAR_DIMS] = {};
        int count = 0;
        ::nc_inq_var(file, variable, nullptr, nullptr, &count, dimensions, nullptr);
        for (int n = 0; n < count; ++n) {
            std::size_t length = 0;
            ::nc_inq_dimlen(file, dimensions[n], &length);
            m_shape.push_back(length);
        }
    }

    /// @return whether all of them could be read, and all are fine
    template <typename IsFine>
    bool areAll(IsFine const& isFine) const
    {
        std::size_t const rows = m_shape.empty() ? 0 : m_shape[0];
        std::size_t ofRow = 1;
        for (std::size_t n = 1; n < m_shape.size(); ++n)
            ofRow *= m_shape[n];
        std::size_t const step = std::max<std::size_t>(1, numbersAtATime / std::max<std::size_t>(1, ofRow));
        std::vector<long long> numbers;
        std::vector<std::size_t> start(m_shape.size(), 0);
        std::vector<std::size_t> count = m_shape;
        for (std::size_t row = 0; row < rows && ofRow > 0; row += step) {
            start[0] = row;
            count[0] = std::min(step, rows - row);
            numbers.resize(count[0] * ofRow);
            if (::nc_get_vara_longlong(m_file, m_variable, start.data(), count.data(), numbers.data()) != NC_NOERR ||
                !std::all_of(numbers.begin(), numbers.end(), isFine))
                return false;
        }
        return true;
    }

private:
    int m_file;
    int m_variable;
    std::vector<std::size_t> m_shape;
};

std::string nameOfVariable(int file, int variable)
{
    char name[NC_MAX_NAME + 1] = "";
    ::nc_inq_varname(file, variable, name);
    return name;
}

// "connect" and a number, and nothing else.
bool isNumbered(std::string const& name, std::string const& start)
{
    return name.compare(0, start.size(), start) == 0 &&
           name.find_first_not_of("0123456789", start.size()) == std::string::npos;
}

} // namespace

ExodusFile::ExodusFile(std::string const& path)
    : m_file(ex_open(path.c_str(), EX_READ, &m_bytesOfNumber, &m_bytesInFile, &m_version))
{
    ex_set_int64_status(m_file, EX_ALL_INT64_API);
}

ExodusFile::~ExodusFile()
{
    ex_close(m_file);
}

std::string ExodusFile::faultAt(int moment) const
{
    ex_init_params sizes{};
    if (ex_get_init_ext(m_file, &sizes) != EX_NOERR || (sizes.num_dim == 0 && sizes.num_nodes > 0))
        return "a size is missing";
    if (!hasNamesOfVariables())
        return "a variable has no name";
    if (!hasSoundCells())
        return "a cell has a node that is not there";
    return moment == 0 || hasAllValues(moment) ? "" : "a variable has no values";
}

int ExodusFile::variablesOf(ex_entity_type type) const
{
    int count = 0;
    ex_get_variable_param(m_file, type, &count);
    return std::max(count, 0);
}

bool ExodusFile::hasNamesOfVariables() const
{
    constexpr ex_entity_type types[] = {EX_NODAL,    EX_ELEM_BLOCK, EX_FACE_BLOCK, EX_EDGE_BLOCK, EX_GLOBAL,
                                        EX_NODE_SET, EX_EDGE_SET,   EX_FACE_SET,   EX_SIDE_SET,   EX_ELEM_SET};
    return std::all_of(std::begin(types), std::end(types), [this](ex_entity_type type) {
        char name[NC_MAX_NAME + 1] = "";
        return variablesOf(type) == 0 || ex_get_variable_name(m_file, type, 1, name) == EX_NOERR;
    });
}

bool ExodusFile::hasSoundCells() const
{
    auto const nodes = static_cast<long long>(ex_inquire_int(m_file, EX_INQ_NODES));
    auto const faces = static_cast<long long>(ex_inquire_int(m_file, EX_INQ_FACE));
    int variables = 0;
    ::nc_inq_nvars(m_file, &variables);
    for (int variable = 0; variable < variables; ++variable) {
        std::string const name = nameOfVariable(m_file, variable);
        bool const isOfNodes = isNumbered(name, "connect") || isNumbered(name, "ebconn") || isNumbered(name, "fbconn");
        long long const most = isNumbered(name, "facconn") ? faces : nodes;
        auto const isThere = [most](long long number) { return number >= 1 && number <= most; };
        if ((isOfNodes || isNumbered(name, "facconn")) && !WholeNumbers(m_file, variable).areAll(isThere))
            return false;
    }
    return true;
}

bool ExodusFile::hasAllValues(int moment) const
{
    bool const hasOfNodes = ex_inquire_int(m_file, EX_INQ_NODES) <= 0 || hasValues(EX_NODAL, 1, moment);
    return hasOfNodes && hasAllValuesOfBlocks(EX_ELEM_BLOCK, EX_INQ_ELEM_BLK, moment) &&
           hasAllValuesOfBlocks(EX_FACE_BLOCK, EX_INQ_FACE_BLK, moment) &&
           hasAllValuesOfBlocks(EX_EDGE_BLOCK, EX_INQ_EDGE_BLK, moment);
}

bool ExodusFile::hasAllValuesOfBlocks(ex_entity_type type, ex_inquiry blocks, int moment) const
{
    std::vector<std::int64_t> ids(static_cast<std::size_t>(std::max<std::int64_t>(ex_inquire_int(m_file, blocks), 0)));
    if (!ids.empty())
        ex_get_ids(m_file, type, ids.data());
    return std::all_of(ids.begin(), ids.end(), [&](std::int64_t id) {
        ex_block block{};
        block.id = id;
        block.type = type;
        return ex_get_block_param(m_file, &block) != EX_NOERR || block.num_entry == 0 || hasValues(type, id, moment);
    });
}

bool ExodusFile::hasValues(ex_entity_type type, std::int64_t id, int moment) const
{
    std::vector<int> isThere(static_cast<std::size_t>(variablesOf(type)), 1);
    if (type != EX_NODAL && !isThere.empty())
        ex_get_object_truth_vector(m_file, type, id, static_cast<int>(isThere.size()), isThere.data());
    int index = 0;
    return std::all_of(isThere.begin(), isThere.end(), [&](int wanted) {
        double value = 0.0;
        ++index;
        return wanted == 0 || ex_get_partial_var(m_file, moment, type, index, id, 1, 1, &value) == EX_NOERR;
    });
}

} // namespace veldraw::app
