#include "app/recovery/RecoveryRecords.h"

#include "app/recovery/CheckSum.h"
#include "kernel/operations/CommandText.h"
#include "operations/Command.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <stdexcept>

namespace veldraw::app {

namespace {

using Kind = RecoveryStep::Kind;
using kernel::CommandText;

constexpr char firstRecord[] = "recovery version=1";

std::map<std::string, Kind> const& kinds()
{
    static std::map<std::string, Kind> const all{
        {"command", Kind::Command}, {"remark", Kind::Remark}, {"open", Kind::Open}, {"save", Kind::Save}};
    return all;
}

std::string wordOf(Kind kind)
{
    auto const& all = kinds();
    return std::find_if(all.begin(), all.end(), [kind](auto const& entry) { return entry.second == kind; })->first;
}

CommandText& addFile(CommandText& text, StampedFile const& file)
{
    return text.number("size", file.size).number("modified", file.modified).quoted("path", file.path);
}

/// A record without its check sum.
struct Line
{
    std::int64_t number = 0;
    std::string content;
};

std::optional<Line> intactLine(std::string const& text)
{
    if (text.size() <= lengthOfSum || text[lengthOfSum] != ' ')
        return std::nullopt;
    std::string const rest = text.substr(lengthOfSum + 1);
    if (checkSumOf(rest) != text.substr(0, lengthOfSum))
        return std::nullopt;
    Line line;
    char const* const end = rest.data() + rest.size();
    auto const [after, error] = std::from_chars(rest.data(), end, line.number);
    if (error != std::errc() || after == end || *after != ' ')
        return std::nullopt;
    line.content.assign(after + 1, end);
    return line;
}

/// The words of a record.
class Words
{
public:
    explicit Words(operations::Command const& command)
        : m_command(command)
    {
    }

    std::string text(char const* name) const
    {
        auto const* const argument = m_command.find(name);
        if (argument == nullptr)
            throw std::runtime_error("a word is missing");
        return argument->text();
    }

    std::int64_t number(char const* name) const { return std::stoll(text(name)); }
    bool flag(char const* name) const { return m_command.find(name) != nullptr && text(name) == "yes"; }
    StampedFile file() const { return {text("path"), number("size"), number("modified")}; }

private:
    operations::Command const& m_command;
};

/// Carries out records, one after the other.
class RecordReader
{
public:
    explicit RecordReader(std::vector<RecoveryStep>& steps)
        : m_steps(steps)
    {
    }

    /// @throws std::exception for a record that makes no sense
    void read(std::string const& content)
    {
        auto const command = operations::readCommand(content);
        if (!command)
            throw std::runtime_error("a record is empty");
        Words const words(*command);
        auto const kind = kinds().find(command->name);
        if (kind != kinds().end())
            add(kind->second, words);
        else
            change(command->name, words);
    }

private:
    void add(Kind kind, Words const& words)
    {
        RecoveryStep step;
        step.kind = kind;
        step.text = words.text("text");
        step.frame = static_cast<int>(words.number("frame"));
        step.altersData = words.flag("alters");
        step.isUndone = words.flag("undone");
        step.isSaved = words.flag("saved");
        m_steps.push_back(std::move(step));
    }

    void change(std::string const& name, Words const& words)
    {
        auto const number = static_cast<std::size_t>(words.number("step"));
        RecoveryStep& step = m_steps.at(number);
        if (name == "undone" || name == "redone")
            step.isUndone = name == "undone";
        else if (name == "text")
            step.text = words.text("is");
        else if (name == "file")
            step.files.push_back(words.file());
        else if (name == "base")
            step.base = SavedBase{words.text("path"), {}, words.text("state")};
        else if (name == "setup")
            step.base.value().commands.push_back(words.text("command"));
        else if (name == "removed" && number + 1 == m_steps.size())
            m_steps.pop_back();
        else
            throw std::runtime_error("there is no such record");
    }

    std::vector<RecoveryStep>& m_steps;
};

/// Lines of a text; the last one may lack its end.
class LineSource
{
public:
    explicit LineSource(std::string const& text)
        : m_text(text)
    {
    }

    /// @return none at the end, and for one that lacks its end
    std::optional<std::string> next()
    {
        std::size_t const end = m_text.find('\n', m_at);
        if (end == std::string::npos)
            return std::nullopt;
        std::string line = m_text.substr(m_at, end - m_at);
        m_at = end + 1;
        return line;
    }

private:
    std::string const& m_text;
    std::size_t m_at = 0;
};

bool hasIntactLine(LineSource lines)
{
    while (auto const line = lines.next()) {
        if (intactLine(*line))
            return true;
    }
    return false;
}

} // namespace

std::vector<std::string> pathsOf(std::string const& command)
{
    std::vector<std::string> paths;
    auto const read = operations::readCommand(command);
    auto const* argument = read ? read->find("files") : nullptr;
    if (read && argument == nullptr)
        argument = read->find("file");
    if (argument != nullptr) {
        for (operations::ValuePart const& part : argument->parts)
            paths.push_back(part.text);
    }
    return paths;
}

void markSaved(std::vector<RecoveryStep>& steps)
{
    for (RecoveryStep& step : steps)
        step.isSaved = !step.isUndone;
}

int countUnsaved(std::vector<RecoveryStep> const& steps)
{
    return static_cast<int>(
        std::count_if(steps.begin(), steps.end(), [](RecoveryStep const& step) { return step.isUnsaved(); }));
}

std::string RecoveryRecords::record(std::string const& content)
{
    std::string const text = std::to_string(m_number++) + ' ' + content;
    return checkSumOf(text) + ' ' + text + '\n';
}

std::string RecoveryRecords::start(std::vector<RecoveryStep> const& steps)
{
    m_number = 0;
    std::string text = record(firstRecord);
    for (std::size_t n = 0; n < steps.size(); ++n) {
        text += added(steps[n]);
        for (StampedFile const& file : steps[n].files)
            text += hasFile(n, file);
        if (steps[n].base)
            text += hasBase(static_cast<long long>(n), *steps[n].base);
    }
    return text;
}

std::string RecoveryRecords::hasBase(long long step, SavedBase const& base)
{
    std::string text =
        record(CommandText("base").number("step", step).word("state", base.state).quoted("path", base.path).text());
    for (std::string const& command : base.commands)
        text += record(CommandText("setup").number("step", step).quoted("command", command).text());
    return text;
}

std::string RecoveryRecords::added(RecoveryStep const& step)
{
    CommandText text(wordOf(step.kind));
    text.quoted("text", step.text).number("frame", step.frame);
    if (step.altersData)
        text.flag("alters", true);
    if (step.isUndone)
        text.flag("undone", true);
    if (step.isSaved)
        text.flag("saved", true);
    return record(text.text());
}

std::string RecoveryRecords::removed(std::size_t step)
{
    return record(CommandText("removed").number("step", static_cast<long long>(step)).text());
}

std::string RecoveryRecords::undone(std::size_t step, bool isUndone)
{
    return record(CommandText(isUndone ? "undone" : "redone").number("step", static_cast<long long>(step)).text());
}

std::string RecoveryRecords::hasText(std::size_t step, std::string const& text)
{
    return record(CommandText("text").number("step", static_cast<long long>(step)).quoted("is", text).text());
}

std::string RecoveryRecords::hasFile(std::size_t step, StampedFile const& file)
{
    CommandText text("file");
    return record(addFile(text.number("step", static_cast<long long>(step)), file).text());
}

RecoveryContent readRecords(std::string const& text)
{
    RecoveryContent content;
    RecordReader reader(content.steps);
    LineSource lines(text);
    std::int64_t number = 0;
    while (auto const line = lines.next()) {
        auto const intact = intactLine(*line);
        bool const isFirst = number == 0;
        bool isGood = intact && intact->number == number++ && (!isFirst || intact->content == firstRecord);
        try {
            if (isGood && !isFirst)
                reader.read(intact->content);
        } catch (std::exception const&) {
            isGood = false;
        }
        if (!isGood) {
            content.isDamaged = isFirst || intact.has_value() || hasIntactLine(lines);
            return content;
        }
        content.isReadable = true;
    }
    content.isDamaged = number == 0 && !text.empty();
    return content;
}

} // namespace veldraw::app
