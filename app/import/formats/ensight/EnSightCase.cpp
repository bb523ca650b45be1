#include "app/import/formats/ensight/EnSightCase.h"

#include "app/files/ImportError.h"
#include "app/files/PlainText.h"
#include "app/files/WholeText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>
#include <sstream>

namespace veldraw::app {

namespace {

constexpr std::size_t mostSteps = 1000000;

using Words = std::vector<std::string>;

bool isSection(std::string const& line)
{
    static std::set<std::string> const sections{"FORMAT", "GEOMETRY", "VARIABLE", "TIME", "FILE", "MATERIAL"};
    return sections.count(line) != 0;
}

bool isWhole(std::string const& word)
{
    return !word.empty() && word.find_first_not_of("0123456789") == std::string::npos && word.size() < 10;
}

std::string inQuotes(std::string const& text)
{
    return "\"" + shortened(asUtf8(text), 100) + "\"";
}

template <typename Number>
Number numberIn(std::string const& word)
{
    Number number{};
    auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size())
        throw ImportError("it is damaged: " + inQuotes(word) + " stands where a number should be");
    return number;
}

template <>
double numberIn<double>(std::string const& word)
{
    double number = 0.0;
    char const* const first = word.data() + (word.front() == '+' ? 1 : 0);
    auto const [end, error] = std::from_chars(first, word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(number))
        throw ImportError("it is damaged: " + inQuotes(word) + " stands where a time should be");
    return number;
}

// The name of the n-th file of a pattern.
std::string nameOf(std::string const& pattern, long number)
{
    std::size_t const first = pattern.find('*');
    if (first == std::string::npos)
        return pattern;
    std::size_t const last = std::min(pattern.find_first_not_of('*', first), pattern.size());
    std::string digits = std::to_string(number);
    if (digits.size() < last - first)
        digits.insert(0, last - first - digits.size(), '0');
    return pattern.substr(0, first) + digits + pattern.substr(last);
}

/// Goes through the lines of a case file.
class CaseText
{
public:
    explicit CaseText(EnSightCase& result)
        : m_result(result)
    {
    }

    void take(std::string const& raw)
    {
        std::string const line = trimmed(raw);
        if (line.empty() || line.front() == '#')
            return;
        if (isSection(line)) {
            m_section = line;
            return;
        }
        std::size_t const colon = line.find(':');
        if (colon == std::string::npos) {
            takeMore(wordsOf(line));
            return;
        }
        m_key = trimmed(line.substr(0, colon));
        takeKey(wordsOf(line.substr(colon + 1)));
    }

    void finish()
    {
        if (!m_isGold)
            throw ImportError("it is no EnSight Gold case: its FORMAT is not \"type: ensight gold\"");
        if (std::none_of(m_result.parts.begin(), m_result.parts.end(),
                         [](auto const& part) { return part.components == 0; }))
            throw ImportError("it names no geometry");
        for (EnSightCase::TimeSet& set : m_result.timeSets)
            complete(set);
    }

private:
    struct Steps
    {
        std::size_t count = 0;
        long start = 0;
        long increment = 1;
        bool hasStart = false;
    };

    void takeKey(Words const& words)
    {
        if (m_section == "FORMAT" && m_key == "type")
            m_isGold = words == Words{"ensight", "gold"};
        else if (m_section == "GEOMETRY" && m_key == "model")
            takeGeometry(words);
        else if (m_section == "GEOMETRY")
            m_result.leftOut.push_back(m_key);
        else if (m_section == "VARIABLE")
            takeVariable(words);
        else if (m_section == "TIME")
            takeTime(words);
    }

    // Values go on on further lines.
    void takeMore(Words const& words)
    {
        if (m_section == "TIME" && (m_key == "time values" || m_key == "filename numbers"))
            takeTime(words);
    }

    // 0 for what is not read.
    int componentsOfKey() const
    {
        for (auto const& [word, count] :
             {std::pair{"scalar", 1}, std::pair{"vector", 3}, std::pair{"tensor symm", 6}}) {
            if (m_key == std::string(word) + " per node" || m_key == std::string(word) + " per element")
                return count;
        }
        return 0;
    }

    EnSightCase::Part& addPart(std::string const& pattern, Words const& words, std::size_t numbers)
    {
        if (numbers > 1)
            throw ImportError("it has files with several moments each, which are not read");
        int const set = numbers > 0 ? numberIn<int>(words[0]) : 0;
        bool const hasNumber = pattern.find('*') != std::string::npos;
        m_result.parts.push_back({pattern, set == 0 && hasNumber ? 1 : set, 0, {}, {}});
        return m_result.parts.back();
    }

    static std::size_t numbersIn(Words const& words, std::size_t others)
    {
        std::size_t numbers = 0;
        while (numbers < 2 && numbers + others < words.size() && isWhole(words[numbers]))
            ++numbers;
        return numbers;
    }

    void takeGeometry(Words const& words)
    {
        if (words.empty())
            throw ImportError("it is damaged: its " + inQuotes(m_key) + " names no file");
        std::size_t const numbers = numbersIn(words, 1);
        bool const isPlain =
            words.size() == numbers + 1 || (words.size() == numbers + 2 && words.back() == "change_coords_only");
        if (!isPlain)
            throw ImportError("it is damaged, or has something that is not read: " + inQuotes(words.back()));
        addPart(words[numbers], words, numbers);
    }

    void takeVariable(Words const& words)
    {
        if (words.size() < 2)
            throw ImportError("it is damaged: its " + inQuotes(m_key) + " has no name or no file");
        if (m_key.rfind("constant", 0) == 0) {
            takeConstant(words);
            return;
        }
        int const components = componentsOfKey();
        if (components == 0) {
            m_result.leftOut.push_back(m_key + " " + words[words.size() - 2]);
            return;
        }
        std::size_t const numbers = numbersIn(words, 2);
        EnSightCase::Part& part = addPart(words.back(), words, numbers);
        part.components = components;
        part.kind = m_key;
        for (std::size_t n = numbers; n + 1 < words.size(); ++n)
            part.name += (n > numbers ? "_" : "") + words[n];
    }

    // One of several moments has no place in auxiliary data.
    void takeConstant(Words const& words)
    {
        if (words.size() == 2)
            m_result.constants.emplace_back(words[0], words[1]);
    }

    void takeTime(Words const& words)
    {
        if (m_key == "time set" && !words.empty()) {
            m_result.timeSets.push_back({numberIn<int>(words[0]), {}, {}});
            m_steps.emplace_back();
            return;
        }
        if (m_result.timeSets.empty())
            throw ImportError("it is damaged: its " + inQuotes(m_key) + " belongs to no time set");
        if (m_key.find("file") == m_key.size() - 4 && m_key.size() > 4)
            throw ImportError("its times stand in a file of their own, which is not read");
        EnSightCase::TimeSet& set = m_result.timeSets.back();
        for (std::string const& word : words) {
            if (m_key == "time values")
                set.times.push_back(numberIn<double>(word));
            else if (m_key == "filename numbers")
                set.files.push_back(numberIn<long>(word));
        }
        if (words.size() == 1)
            takeStep(words[0]);
    }

    void takeStep(std::string const& word)
    {
        Steps& steps = m_steps.back();
        if (m_key == "number of steps")
            steps.count = numberIn<std::size_t>(word);
        if (m_key == "filename increment")
            steps.increment = numberIn<long>(word);
        if (m_key == "filename start number") {
            steps.start = numberIn<long>(word);
            steps.hasStart = true;
        }
    }

    void complete(EnSightCase::TimeSet& set) const
    {
        Steps const& steps = m_steps[static_cast<std::size_t>(&set - m_result.timeSets.data())];
        std::string const which = "its time set " + std::to_string(set.number);
        if (steps.count == 0 || steps.count > mostSteps)
            throw ImportError("it is damaged: " + which + " has no number of steps that can be");
        if (set.times.size() != steps.count)
            throw ImportError("it is damaged: " + which + " has " + std::to_string(set.times.size()) + " times for " +
                              std::to_string(steps.count) + " steps");
        for (std::size_t n = 0; set.files.empty() && steps.hasStart && n < steps.count; ++n)
            m_numbers.push_back(steps.start + static_cast<long>(n) * steps.increment);
        if (set.files.empty())
            set.files = std::move(m_numbers);
        m_numbers.clear();
        if (!set.files.empty() && set.files.size() != steps.count)
            throw ImportError("it is damaged: " + which + " has not as many numbers of files as steps");
    }

    EnSightCase& m_result;
    std::vector<Steps> m_steps; // of the time sets
    mutable std::vector<long> m_numbers;
    std::string m_section;
    std::string m_key;
    bool m_isGold = false;
};

EnSightCase::TimeSet const* setOf(EnSightCase const& all, EnSightCase::Part const& part)
{
    auto const found = std::find_if(all.timeSets.begin(), all.timeSets.end(),
                                    [&part](EnSightCase::TimeSet const& set) { return set.number == part.timeSet; });
    bool const hasNumber = part.pattern.find('*') != std::string::npos;
    if (hasNumber && (found == all.timeSets.end() || found->files.empty()))
        throw ImportError("it is damaged: no time set gives numbers to its files " + inQuotes(part.pattern));
    return found == all.timeSets.end() ? nullptr : &*found;
}

} // namespace

EnSightCase EnSightCase::of(std::string const& path)
{
    std::string const content = wholeText(path);
    if (content.find('\0') != std::string::npos)
        throw ImportError("it is no EnSight case: it has zero bytes");
    EnSightCase result;
    CaseText text(result);
    std::istringstream stream(content);
    for (std::string line; std::getline(stream, line);)
        text.take(line);
    text.finish();
    return result;
}

std::vector<double> EnSightCase::times() const
{
    std::set<double> all;
    for (Part const& part : parts) {
        if (TimeSet const* const set = setOf(*this, part))
            all.insert(set->times.begin(), set->times.end());
    }
    return {all.begin(), all.end()};
}

std::vector<std::string> EnSightCase::files() const
{
    std::vector<std::string> names;
    std::set<std::string> known;
    for (Part const& part : parts) {
        TimeSet const* const set = setOf(*this, part);
        bool const isOne = !set || part.pattern.find('*') == std::string::npos;
        for (std::size_t n = 0; n < (isOne ? 1 : set->files.size()); ++n) {
            std::string const name = isOne ? part.pattern : nameOf(part.pattern, set->files[n]);
            if (known.insert(name).second)
                names.push_back(name);
        }
    }
    return names;
}

std::vector<EnSightCase::File> EnSightCase::filesAt(double time) const
{
    std::vector<File> files;
    for (Part const& part : parts) {
        TimeSet const* const set = setOf(*this, part);
        std::size_t step = 0;
        for (std::size_t n = 0; set && n < set->times.size(); ++n)
            step = set->times[n] <= time ? n : step;
        bool const isOne = !set || part.pattern.find('*') == std::string::npos;
        files.push_back({&part, isOne ? part.pattern : nameOf(part.pattern, set->files[step])});
    }
    return files;
}

std::string EnSightCase::textAt(double time, char mark) const
{
    std::string geometry = "FORMAT\ntype: ensight gold\n\nGEOMETRY\n";
    std::string variables = "\nVARIABLE\n";
    for (auto const& [part, name] : filesAt(time)) {
        if (part->components == 0)
            geometry += "model: " + (mark + name) + "\n";
        else
            variables += part->kind + ": " + part->name + " " + mark + name + "\n";
    }
    return geometry + variables;
}

} // namespace veldraw::app
