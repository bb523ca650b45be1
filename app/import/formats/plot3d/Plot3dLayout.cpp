#include "app/import/formats/plot3d/Plot3dLayout.h"

#include "app/files/PathChecks.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

namespace veldraw::app {

namespace {

using Content = Plot3dLayout::Content;

constexpr std::int64_t mostBlocksOfPlot3d = 100000;
constexpr std::int64_t mostVariablesOfPlot3d = 1000;
constexpr int bytesOfMark = 4;

/// Tries one form on a file.
class Plot3dWalk
{
public:
    Plot3dWalk(std::ifstream& file, std::int64_t size, Plot3dLayout::Form const& form, Content content)
        : m_file(file)
        , m_size(size)
        , m_content(content)
    {
        m_layout.form = form;
    }

    std::optional<Plot3dLayout> run()
    {
        bool fits = readSizes();
        for (std::size_t n = 0; fits && n < m_layout.blocks.size(); ++n)
            fits = passBlock(m_layout.blocks[n]);
        return fits && m_at == m_size ? std::optional(m_layout) : std::nullopt;
    }

private:
    template <typename Number>
    Number next()
    {
        char bytes[sizeof(Number)] = {};
        m_file.clear();
        m_file.seekg(m_at);
        m_file.read(bytes, sizeof bytes);
        m_at += static_cast<std::int64_t>(sizeof bytes);
        if (m_layout.form.isBigEndian)
            std::reverse(bytes, bytes + sizeof bytes);
        Number number{};
        std::memcpy(&number, bytes, sizeof bytes);
        return number;
    }

    double nextReal() { return m_layout.form.isDouble ? next<double>() : static_cast<double>(next<float>()); }

    // The count of bytes before a record, or behind it.
    bool passCount(std::int64_t bytes) { return !m_layout.form.isFortran || next<std::uint32_t>() == bytes; }

    bool readSizes()
    {
        std::int64_t count = 1;
        if (m_layout.form.isSeveral) {
            bool const isAlone = passCount(4);
            count = next<std::int32_t>();
            if (!isAlone || !passCount(4) || count < 1 || count > mostBlocksOfPlot3d)
                return false;
        }
        std::int64_t const bytes =
            4 * count * ((m_layout.form.isPlanar ? 2 : 3) + (m_content == Content::Function ? 1 : 0));
        if (bytes > m_size || !passCount(bytes))
            return false;
        m_layout.blocks.resize(static_cast<std::size_t>(count));
        return std::all_of(m_layout.blocks.begin(), m_layout.blocks.end(),
                           [this](Plot3dLayout::Block& block) { return readSize(block); }) &&
               passCount(bytes);
    }

    bool readSize(Plot3dLayout::Block& block)
    {
        std::int64_t points = 1;
        for (std::size_t axis = 0; axis < (m_layout.form.isPlanar ? 2 : 3); ++axis) {
            block.size[axis] = next<std::int32_t>();
            if (block.size[axis] < 1 || block.size[axis] > m_size / points)
                return false;
            points *= block.size[axis];
        }
        int const axes = m_layout.form.isPlanar ? 2 : 3;
        block.variables = m_content == Content::Grid ? axes : axes + 2;
        if (m_content == Content::Function)
            block.variables = next<std::int32_t>();
        return block.variables >= 1 && block.variables <= mostVariablesOfPlot3d;
    }

    bool passBlock(Plot3dLayout::Block& block)
    {
        std::int64_t const conditions = 4 * m_layout.bytesOfNumber();
        if (m_content == Content::Solution) {
            if (!passCount(conditions))
                return false;
            for (double& number : block.conditions)
                number = nextReal();
            if (!passCount(conditions))
                return false;
        }
        std::int64_t const bytes =
            block.points() * (block.variables * m_layout.bytesOfNumber() + (m_layout.form.hasMarks ? bytesOfMark : 0));
        if (!passCount(bytes))
            return false;
        block.offset = m_at;
        m_at += bytes;
        return m_at <= m_size && passCount(bytes);
    }

    std::ifstream& m_file;
    std::int64_t m_size;
    Content m_content;
    std::int64_t m_at = 0;
    Plot3dLayout m_layout;
};

// Those that more files have come first.
std::vector<Plot3dLayout::Form> formsOf(Content content)
{
    std::vector<Plot3dLayout::Form> forms;
    for (unsigned int bits = 0; bits < 64; ++bits) {
        auto const has = [bits](unsigned int which) { return ((bits >> which) & 1U) != 0; };
        Plot3dLayout::Form form;
        form.hasMarks = has(5);
        form.isPlanar = has(4);
        form.isSeveral = has(3);
        form.isDouble = has(2);
        form.isFortran = has(1);
        form.isBigEndian = has(0);
        if (content == Content::Grid || !form.hasMarks)
            forms.push_back(form);
    }
    return forms;
}

bool goWith(Plot3dLayout const& layout, Plot3dLayout const& grid)
{
    return layout.form.isPlanar == grid.form.isPlanar &&
           std::equal(layout.blocks.begin(), layout.blocks.end(), grid.blocks.begin(), grid.blocks.end(),
                      [](auto const& left, auto const& right) { return left.size == right.size; });
}

} // namespace

std::optional<Plot3dLayout> Plot3dLayout::of(std::string const& path, Content content, Plot3dLayout const* grid)
{
    std::ifstream file = openToRead(path);
    auto const size = static_cast<std::int64_t>(std::filesystem::file_size(path));
    for (Form const& form : formsOf(content)) {
        auto layout = Plot3dWalk(file, size, form, content).run();
        if (layout && (!grid || goWith(*layout, *grid)))
            return layout;
    }
    return std::nullopt;
}

} // namespace veldraw::app
