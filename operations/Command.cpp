#include "operations/Command.h"

#include <algorithm>

namespace veldraw::operations {

namespace {

bool isBlank(char letter)
{
    return letter == ' ' || letter == '\t';
}

bool startsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

/// Goes through a line, and knows where it is.
class LineReader
{
public:
    LineReader(std::string const& line, int number)
        : m_line(line)
        , m_place{number, 1}
    {
    }

    TextPlace place() const { return m_place; }

    bool isAtEnd() const { return m_at == m_line.size(); }

    char letter() const { return m_line[m_at]; }

    char next()
    {
        char const letter = m_line[m_at++];
        if (isAtEnd() || startsCharacter(m_line[m_at]))
            ++m_place.column;
        return letter;
    }

    /// @return whether there is a word
    bool findWord()
    {
        while (!isAtEnd() && isBlank(letter()))
            next();
        return !isAtEnd() && letter() != '#';
    }

    bool isInWord() const { return !isAtEnd() && !isBlank(letter()); }

private:
    std::string const& m_line;
    std::size_t m_at = 0;
    TextPlace m_place;
};

char unescaped(LineReader& reader)
{
    TextPlace const place = reader.place();
    if (reader.isAtEnd())
        throw CommandError("A quotation mark is missing at the end.", place);
    switch (reader.next()) {
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    case '"':
        return '"';
    case '\\':
        return '\\';
    default:
        throw CommandError("In quotes a backslash stands before n, r, t, \" or another backslash.", place);
    }
}

void readQuoted(LineReader& reader, std::string& text)
{
    TextPlace const start = reader.place();
    reader.next();
    while (!reader.isAtEnd()) {
        char const letter = reader.next();
        if (letter == '"')
            return;
        text += letter == '\\' ? unescaped(reader) : letter;
    }
    throw CommandError("The quotation mark that ends this text is missing.", start);
}

ValuePart readPart(LineReader& reader)
{
    ValuePart part;
    part.place = reader.place();
    while (reader.isInWord() && reader.letter() != ',') {
        if (reader.letter() == '"') {
            part.isQuoted = true;
            readQuoted(reader, part.text);
        } else {
            part.text += reader.next();
        }
    }
    return part;
}

CommandArgument readArgument(LineReader& reader)
{
    CommandArgument argument;
    argument.place = reader.place();
    while (reader.isInWord() && reader.letter() != '=')
        argument.name += reader.next();
    if (!reader.isInWord() || argument.name.empty())
        throw CommandError("A parameter and its value are written as name=value.", argument.place);
    do {
        reader.next(); // the equals sign, or a comma
        argument.parts.push_back(readPart(reader));
    } while (reader.isInWord());
    return argument;
}

} // namespace

std::string CommandArgument::text() const
{
    std::string whole = parts.front().text;
    for (std::size_t part = 1; part < parts.size(); ++part)
        whole += ',' + parts[part].text;
    return whole;
}

CommandArgument const* Command::find(std::string const& parameter) const
{
    auto const found = std::find_if(arguments.begin(), arguments.end(),
                                    [&](CommandArgument const& argument) { return argument.name == parameter; });
    return found == arguments.end() ? nullptr : &*found;
}

std::optional<Command> readCommand(std::string const& line, int number)
{
    LineReader reader(line, number);
    if (!reader.findWord())
        return std::nullopt;
    Command command;
    command.place = reader.place();
    while (reader.isInWord())
        command.name += reader.next();
    while (reader.findWord()) {
        CommandArgument argument = readArgument(reader);
        if (command.find(argument.name) != nullptr)
            throw CommandError("\"" + argument.name + "\" is given twice.", argument.place);
        command.arguments.push_back(std::move(argument));
    }
    return command;
}

} // namespace veldraw::operations
