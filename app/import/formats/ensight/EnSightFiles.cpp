#include "app/import/formats/ensight/EnSightFiles.h"

#include "app/files/ImportError.h"
#include "app/files/PlainText.h"

#include <algorithm>

namespace veldraw::app {

namespace {

[[noreturn]] void refuseWord(std::string const& word)
{
    throw ImportError("it is damaged, or has something that is not read: \"" + shortened(asUtf8(word), 40) + "\"");
}

// 0 for elements of any number of corners, -1 for none.
int cornersOf(std::string const& kind)
{
    static std::map<std::string, int> const known{
        {"point", 1},    {"bar2", 2},   {"bar3", 3},     {"tria3", 3},    {"tria6", 6},      {"quad4", 4},
        {"quad8", 8},    {"tetra4", 4}, {"tetra10", 10}, {"pyramid5", 5}, {"pyramid13", 13}, {"penta6", 6},
        {"penta15", 15}, {"hexa8", 8},  {"hexa20", 20},  {"nsided", 0},   {"nfaced", 0}};
    auto const found = known.find(kind.rfind("g_", 0) == 0 ? kind.substr(2) : kind);
    return found == known.end() ? -1 : found->second;
}

/// Goes through a geometry.
class GeometryWalk
{
public:
    GeometryWalk(std::string const& path, EnSightShape& shape, kernel::Progress const& progress)
        : m_file(path, shape.form)
        , m_shape(shape)
        , m_progress(progress)
    {
    }

    void run()
    {
        if (m_shape.form != EnSightInput::Form::Text)
            m_file.line();
        m_file.line();
        m_file.line();
        m_hasNodeIds = hasIds("node");
        m_hasElementIds = hasIds("element");
        std::string word = m_file.line();
        if (word == "extents") {
            if (m_shape.form == EnSightInput::Form::Text)
                m_file.skipNumbers(3); // lines of two
            else
                m_file.skipNumbers(6);
            word = m_file.line();
        }
        while (!word.empty())
            word = part(word);
        if (m_shape.parts.empty())
            throw ImportError("it has no parts");
    }

private:
    bool hasIds(std::string const& what)
    {
        auto const words = wordsOf(m_file.line());
        if (words.size() != 3 || words[0] != what || words[1] != "id")
            throw ImportError("it is no EnSight Gold geometry: \"" + what + " id\" is not where it should be");
        return words[2] == "given" || words[2] == "ignore";
    }

    std::string nextWord() { return m_file.isAtEnd() ? std::string() : m_file.line(); }

    // @return the word behind it; empty at the end
    std::string part(std::string const& word)
    {
        m_progress.check();
        if (word != "part")
            refuseWord(word);
        auto const [place, isNew] = m_shape.parts.try_emplace(m_file.wholes(1).front());
        if (!isNew)
            throw ImportError("it is damaged: it has part " + std::to_string(place->first) + " twice");
        m_file.line();
        std::string const kind = nextWord();
        if (kind == "coordinates")
            return mesh(place->second);
        if (kind.rfind("block", 0) == 0) {
            block(place->second, kind);
            return nextWord();
        }
        return kind; // a part without anything
    }

    std::string mesh(EnSightShape::Part& part)
    {
        part.points = m_file.count();
        if (m_hasNodeIds)
            m_file.skipNumbers(part.points);
        for (int axis = 0; axis < 3; ++axis)
            m_file.skipNumbers(part.points);
        std::string word = nextWord();
        for (; !word.empty() && word != "part"; word = nextWord())
            elements(part, word);
        return word;
    }

    void elements(EnSightShape::Part& part, std::string const& kind)
    {
        int const corners = cornersOf(kind);
        if (corners < 0)
            refuseWord(kind);
        std::int64_t const count = m_file.count();
        part.elements[kind] += count;
        if (m_hasElementIds)
            m_file.skipNumbers(count);
        bool const isText = m_shape.form == EnSightInput::Form::Text;
        if (corners > 0) {
            m_file.skipRows(count, corners);
            return;
        }
        std::int64_t lines = count;
        std::int64_t all = m_file.sumOf(count);
        if (kind.find("nfaced") != std::string::npos) {
            lines = all;
            all = m_file.sumOf(all);
        }
        m_file.skipRows(isText ? lines : 1, isText ? 1 : all);
    }

    void block(EnSightShape::Part& part, std::string const& kind)
    {
        auto const words = wordsOf(kind);
        auto const has = [&words](char const* word) {
            return std::find(words.begin(), words.end(), word) != words.end();
        };
        if (has("with_ghost") || has("range") || words.front() != "block")
            refuseWord(kind);
        auto const size = m_file.wholes(3);
        double product = 1.0;
        for (std::int32_t const along : size)
            product *= along > 0 ? along : 0;
        if (product < 1.0 || product > 2147483647.0)
            throw ImportError("it is damaged: a block has dimensions that cannot be");
        part.points = std::int64_t{size[0]} * size[1] * size[2];
        part.elements["block"] = part.points;
        if (has("uniform")) {
            m_file.skipNumbers(3);
            m_file.skipNumbers(3);
        } else {
            for (std::size_t axis = 0; axis < 3; ++axis)
                m_file.skipNumbers(has("rectilinear") ? size[axis] : part.points);
        }
        if (has("iblanked"))
            m_file.skipNumbers(part.points);
    }

    EnSightInput m_file;
    EnSightShape& m_shape;
    kernel::Progress const& m_progress;
    bool m_hasNodeIds = false;
    bool m_hasElementIds = false;
};

std::int64_t countIn(EnSightShape::Part const& part, std::string const& word)
{
    if (word == "coordinates")
        return part.points;
    auto const found = part.elements.find(word);
    if (found == part.elements.end())
        refuseWord(word);
    return found->second;
}

} // namespace

EnSightShape EnSightShape::of(std::string const& path, kernel::Progress const& progress)
{
    EnSightShape shape;
    shape.form = EnSightInput::formOf(path);
    GeometryWalk(path, shape, progress).run();
    return shape;
}

void checkEnSightValues(std::string const& path, EnSightShape const& shape, int components,
                        kernel::Progress const& progress)
{
    EnSightInput file(path, shape.form);
    file.line();
    EnSightShape::Part const* part = nullptr;
    while (!file.isAtEnd()) {
        progress.check();
        std::string word = file.line();
        if (word == "part") {
            auto const found = shape.parts.find(file.wholes(1).front());
            if (found == shape.parts.end())
                throw ImportError("it has values of a part that there is not");
            part = &found->second;
            continue;
        }
        if (!part)
            refuseWord(word);
        std::size_t const undefined = word.find(" undef");
        if (undefined != std::string::npos) {
            file.skipNumbers(1);
            word.resize(undefined);
        }
        std::int64_t const count = countIn(*part, word);
        for (int component = 0; component < components; ++component)
            file.skipNumbers(count);
    }
}

} // namespace veldraw::app
