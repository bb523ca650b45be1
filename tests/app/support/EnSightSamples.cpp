#include "tests/app/support/EnSightSamples.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

namespace veldraw::tests {

namespace {

constexpr int pointsOfWing = 5;
constexpr int cellsOfWing = 3;

/// One of the files of a case: lines, whole numbers and numbers, as text or as bytes.
class EnSightFile
{
public:
    explicit EnSightFile(EnSightForm form)
        : m_form(form)
    {
    }

    void line(std::string text)
    {
        if (m_form != EnSightForm::Text)
            text.resize(80, '\0');
        m_record += text;
        if (m_form == EnSightForm::Text)
            m_record += "\n";
        endRecord();
    }

    void whole(std::vector<std::vector<std::int32_t>> const& rows)
    {
        for (auto const& row : rows) {
            for (std::int32_t const number : row)
                add(number, "%10d", number);
            m_record += m_form == EnSightForm::Text ? "\n" : "";
        }
        endRecord();
    }

    void numbers(int count, std::function<double(int)> const& number)
    {
        for (int n = 0; n < count; ++n) {
            add(static_cast<float>(number(n)), "%12.5e", number(n));
            m_record += m_form == EnSightForm::Text ? "\n" : "";
        }
        endRecord();
    }

    std::string const& content() const { return m_content; }

private:
    template <typename Stored, typename Printed>
    void add(Stored stored, char const* format, Printed printed)
    {
        char text[sizeof stored > 32 ? sizeof stored : 32];
        std::size_t size = sizeof stored;
        if (m_form != EnSightForm::Text)
            std::memcpy(text, &stored, sizeof stored);
        else
            size = static_cast<std::size_t>(std::snprintf(text, sizeof text, format, printed));
        m_record.append(text, size);
    }

    void endRecord()
    {
        auto const size = static_cast<std::int32_t>(m_record.size());
        std::string mark(sizeof size, '\0');
        std::memcpy(mark.data(), &size, sizeof size);
        bool const isMarked = m_form == EnSightForm::FortranBinary;
        m_content += isMarked ? mark + m_record + mark : m_record;
        m_record.clear();
    }

    EnSightForm m_form;
    std::string m_record; // that has not ended
    std::string m_content;
};

std::string geometry(int size, EnSightForm form)
{
    EnSightFile file(form);
    if (form != EnSightForm::Text)
        file.line(form == EnSightForm::CBinary ? "C Binary" : "Fortran Binary");
    for (char const* const text : {"made by hand", "for a test", "node id assign", "element id assign", "part"})
        file.line(text);
    file.whole({{1}});
    file.line("Wing \u00fc (1)");
    file.line("coordinates");
    file.whole({{pointsOfWing}});
    double const corners[3][pointsOfWing] = {{0, 1, 1, 0, 2}, {0, 0, 1, 1, 0.5}, {0, 0, 0, 0, -1}};
    for (auto const& axis : corners)
        file.numbers(pointsOfWing, [&axis](int n) { return axis[n]; });
    file.line("tria3");
    file.whole({{2}});
    file.whole({{1, 2, 3}, {2, 5, 3}});
    file.line("quad4");
    file.whole({{1}});
    file.whole({{1, 2, 3, 4}});
    file.line("part");
    file.whole({{2}});
    file.line("box");
    file.line("block");
    file.whole({{size, size, size}});
    int const points = size * size * size;
    file.numbers(points, [size](int n) { return n % size; });
    file.numbers(points, [size](int n) { return n / size % size; });
    file.numbers(points, [size](int n) { return n / size / size; });
    return file.content();
}

void startPart(EnSightFile& file, int part, char const* what)
{
    file.line("part");
    file.whole({{part}});
    file.line(what);
}

std::string pressure(int moment, int size, EnSightForm form)
{
    EnSightFile file(form);
    file.line("pressure");
    for (int const part : {1, 2}) {
        startPart(file, part, part == 1 ? "coordinates" : "block");
        file.numbers(part == 1 ? pointsOfWing : size * size * size,
                     [part, moment](int n) { return 1000.0 * part + n + 0.25 * moment; });
    }
    return file.content();
}

std::string velocity(int moment, int size, EnSightForm form)
{
    EnSightFile file(form);
    file.line("velocity");
    for (int const part : {1, 2}) {
        startPart(file, part, part == 1 ? "coordinates" : "block");
        int const points = part == 1 ? pointsOfWing : size * size * size;
        for (int const axis : {1, 2, 3})
            file.numbers(points, [axis, moment](int n) { return axis * n + (axis == 3 ? moment : 0); });
    }
    return file.content();
}

std::string quality(int moment, EnSightForm form)
{
    EnSightFile file(form);
    file.line("quality");
    startPart(file, 1, "tria3");
    file.numbers(2, [moment](int n) { return n - moment; });
    file.line("quad4");
    file.numbers(1, [moment](int) { return cellsOfWing - 1 - moment; });
    return file.content();
}

std::string times(int moments)
{
    std::string text = "TIME\ntime set: 1 moments\nnumber of steps: " + std::to_string(moments) +
                       "\nfilename start number: 8\nfilename increment: 2\ntime values:";
    for (int n = 0; n < moments; ++n)
        text += (n % 2 == 1 ? "\n" : " ") + std::to_string(n) + ".5";
    return text + "\n";
}

} // namespace

SoundFile enSightCase(int moments, int size, EnSightForm form)
{
    SoundFile result{"flow.case",
                     "# by hand\nFORMAT\ntype:  ensight gold\n\nGEOMETRY\nmodel: flow.geo\n\nVARIABLE\n"
                     "scalar per node: 1 pressure flow.p**\nvector per node: 1 velocity flow.v**\n"
                     "scalar per element: 1 quality flow.q**\nconstant per case: Mach 0.8\n\n" +
                         times(moments),
                     {{"flow.geo", geometry(size, form)}}};
    for (int n = 0; n < moments; ++n) {
        std::string const number = (n == 0 ? "0" : "") + std::to_string(8 + 2 * n);
        result.others.emplace_back("flow.p" + number, pressure(n, size, form));
        result.others.emplace_back("flow.v" + number, velocity(n, size, form));
        result.others.emplace_back("flow.q" + number, quality(n, form));
    }
    return result;
}

} // namespace veldraw::tests
