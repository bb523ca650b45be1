#include "tests/app/support/OpenFoamSamples.h"

#include <cstdint>
#include <cstring>
#include <functional>
#include <numeric>
#include <vector>

namespace veldraw::tests {

namespace {

using Numbers = std::vector<double>;
using Labels = std::vector<std::int32_t>;

std::string textOf(double number)
{
    std::string text = std::to_string(number);
    return text.substr(0, text.find_last_not_of('0') + 1);
}

/// One of the files of a case.
class OpenFoamFile
{
public:
    OpenFoamFile(OpenFoamForm form, std::string const& kind, std::string const& object)
        : m_form(form)
    {
        m_content = "/* by hand */\nFoamFile\n{\n    version 2.0;\n    format " +
                    std::string(form == OpenFoamForm::Text ? "ascii" : "binary") +
                    ";\n    arch \"LSB;label=32;scalar=64\";\n    class " + kind + ";\n    object " + object +
                    ";\n}\n// values\n\n";
    }

    OpenFoamFile& text(std::string const& content)
    {
        m_content += content;
        return *this;
    }

    OpenFoamFile& labels(Labels const& values)
    {
        return list(values.size(), values.data(), values.size() * sizeof(std::int32_t),
                    [&values](std::size_t n) { return std::to_string(values[n]); });
    }

    /// Things of so many numbers each.
    OpenFoamFile& numbers(Numbers const& values, std::size_t each)
    {
        return list(values.size() / each, values.data(), values.size() * sizeof(double), [&](std::size_t n) {
            std::string row;
            for (std::size_t component = 0; component < each; ++component)
                row += (component > 0 ? " " : "") + textOf(values[n * each + component]);
            return each > 1 ? "(" + row + ")" : row;
        });
    }

    std::string const& content() const { return m_content; }

private:
    OpenFoamFile& list(std::size_t count, void const* bytes, std::size_t size,
                       std::function<std::string(std::size_t)> const& row)
    {
        m_content += std::to_string(count) + "\n(";
        if (m_form == OpenFoamForm::Binary)
            m_content.append(static_cast<char const*>(bytes), size);
        for (std::size_t n = 0; m_form == OpenFoamForm::Text && n < count; ++n)
            m_content += "\n" + row(n);
        m_content += m_form == OpenFoamForm::Text ? "\n)" : ")";
        return *this;
    }

    OpenFoamForm m_form;
    std::string m_content;
};

/// The faces of the row of cubes: those between two cells first, then those of the patches.
struct RowOfCubes
{
    explicit RowOfCubes(int count)
        : cells(count)
    {
        for (int i = 1; i < cells; ++i)
            add(i - 1, {at(i, 0, 0), at(i, 1, 0), at(i, 1, 1), at(i, 0, 1)});
        add(0, {at(0, 0, 0), at(0, 0, 1), at(0, 1, 1), at(0, 1, 0)});
        add(cells - 1, {at(cells, 0, 0), at(cells, 1, 0), at(cells, 1, 1)});
        add(cells - 1, {at(cells, 0, 0), at(cells, 1, 1), at(cells, 0, 1)});
        for (int i = 0; i < cells; ++i) {
            add(i, {at(i, 0, 0), at(i + 1, 0, 0), at(i + 1, 0, 1), at(i, 0, 1)});
            add(i, {at(i, 1, 0), at(i, 1, 1), at(i + 1, 1, 1), at(i + 1, 1, 0)});
            add(i, {at(i, 0, 0), at(i, 1, 0), at(i + 1, 1, 0), at(i + 1, 0, 0)});
            add(i, {at(i, 0, 1), at(i + 1, 0, 1), at(i + 1, 1, 1), at(i, 1, 1)});
        }
    }

    std::int32_t at(int i, int j, int k) const { return i + (cells + 1) * (j + 2 * k); }

    void add(std::int32_t cell, Labels const& corners)
    {
        owners.push_back(cell);
        faces.push_back(corners);
    }

    int cells;
    Labels owners;
    std::vector<Labels> faces;
};

std::string points(int cells, OpenFoamForm form)
{
    Numbers places;
    for (int n = 0; n < 4 * (cells + 1); ++n) {
        int const row = n / (cells + 1);
        places.insert(places.end(), {1.0 * (n % (cells + 1)), 1.0 * (row % 2), 1.0 * (row / 2)});
    }
    return OpenFoamFile(form, "vectorField", "points").numbers(places, 3).text("\n").content();
}

std::string faces(RowOfCubes const& row, OpenFoamForm form)
{
    if (form == OpenFoamForm::Text) {
        OpenFoamFile file(form, "faceList", "faces");
        file.text(std::to_string(row.faces.size()) + "\n(\n");
        for (Labels const& corners : row.faces) {
            file.text(std::to_string(corners.size()));
            std::string list;
            for (std::int32_t const corner : corners)
                list += (list.empty() ? "(" : " ") + std::to_string(corner);
            file.text(list + ")\n");
        }
        return file.text(")\n").content();
    }
    Labels starts{0};
    Labels all;
    for (Labels const& corners : row.faces) {
        all.insert(all.end(), corners.begin(), corners.end());
        starts.push_back(static_cast<std::int32_t>(all.size()));
    }
    return OpenFoamFile(form, "faceCompactList", "faces").labels(starts).text("\n").labels(all).text("\n").content();
}

std::string boundary(int cells)
{
    OpenFoamFile file(OpenFoamForm::Text, "polyBoundaryMesh", "boundary");
    file.text("3\n(\n");
    int start = cells - 1;
    for (auto const& [name, count] : {std::pair{"inlet", 1}, std::pair{"outlet", 2}, std::pair{"walls", 4 * cells}}) {
        file.text("    " + std::string(name) + "\n    {\n        type patch;\n        nFaces " + std::to_string(count) +
                  ";\n        startFace " + std::to_string(start) + ";\n    }\n");
        start += count;
    }
    return file.text(")\n").content();
}

std::string dimensions()
{
    return "dimensions [0 2 -2 0 0 0 0];\n\ninternalField ";
}

// What a field is at patches where the case has nothing to say of it.
std::string otherPatches()
{
    return ";\n\nboundaryField\n{\n    \".*\"\n    {\n        type zeroGradient;\n    }\n}\n";
}

std::string pressure(int moment, int cells, OpenFoamForm form)
{
    Numbers inside;
    Numbers walls;
    for (int c = 0; c < cells; ++c)
        inside.push_back(10 * c + moment);
    for (int f = 0; f < 4 * cells; ++f)
        walls.push_back(100 + f);
    OpenFoamFile file(form, "volScalarField", "p");
    file.text(dimensions() + "nonuniform List<scalar> ").numbers(inside, 1);
    file.text(";\n\nboundaryField\n{\n    inlet\n    {\n        type fixedValue;\n        value uniform " +
              textOf(7 + moment) + ";\n    }\n    outlet\n    {\n        type zeroGradient;\n    }\n" +
              "    walls\n    {\n        type calculated;\n        value nonuniform List<scalar> ");
    return file.numbers(walls, 1).text(";\n    }\n}\n").content();
}

std::string velocity(int moment, int cells, OpenFoamForm form)
{
    Numbers inside;
    for (int c = 0; c < cells; ++c)
        inside.insert(inside.end(), {1.0 * c, 2.0 * c, 3.0 * c + moment});
    OpenFoamFile file(form, "volVectorField", "U");
    return file.text(dimensions() + "nonuniform List<vector> ").numbers(inside, 3).text(otherPatches()).content();
}

std::string stress(int cells, OpenFoamForm form)
{
    Numbers inside;
    for (int c = 0; c < cells; ++c) {
        for (int n = 1; n <= 6; ++n)
            inside.push_back(10 * c + n);
    }
    OpenFoamFile file(form, "volSymmTensorField", "R");
    return file.text(dimensions() + "nonuniform List<symmTensor> ").numbers(inside, 6).text(otherPatches()).content();
}

std::string temperature(int moment, OpenFoamForm form)
{
    OpenFoamFile file(form, "volScalarField", "T");
    return file.text(dimensions() + "uniform " + textOf(300 + moment) + otherPatches()).content();
}

std::string pointValues(int moment, int cells, OpenFoamForm form)
{
    Numbers inside;
    for (int n = 0; n < 4 * (cells + 1); ++n)
        inside.push_back(0.5 * n + moment);
    OpenFoamFile file(form, "pointScalarField", "pointValue");
    return file.text(dimensions() + "nonuniform List<scalar> ").numbers(inside, 1).text(otherPatches()).content();
}

} // namespace

SoundFile openFoamCase(int moments, int cells, OpenFoamForm form)
{
    RowOfCubes const row(cells);
    Labels neighbours(static_cast<std::size_t>(cells - 1));
    std::iota(neighbours.begin(), neighbours.end(), 1);
    std::string const mesh = "constant/polyMesh/";
    SoundFile result{"row.foam", "", {}};
    result.others = {{mesh + "points", points(cells, form)},
                     {mesh + "faces", faces(row, form)},
                     {mesh + "owner", OpenFoamFile(form, "labelList", "owner").labels(row.owners).text("\n").content()},
                     {mesh + "neighbour", OpenFoamFile(form, "labelList", "neighbour").labels(neighbours).content()},
                     {mesh + "boundary", boundary(cells)},
                     {"system/controlDict",
                      OpenFoamFile(OpenFoamForm::Text, "dictionary", "controlDict").text("deltaT 0.5;\n").content()}};
    for (int n = 0; n < moments; ++n) {
        std::string const folder = std::to_string(n / 2) + (n % 2 == 1 ? ".5/" : "/");
        result.others.emplace_back(folder + "p", pressure(n, cells, form));
        result.others.emplace_back(folder + "U", velocity(n, cells, form));
        result.others.emplace_back(folder + "T", temperature(n, form));
        result.others.emplace_back(folder + "R", stress(cells, form));
        result.others.emplace_back(folder + "pointValue", pointValues(n, cells, form));
    }
    return result;
}

} // namespace veldraw::tests
