#include "app/import/formats/table/CsvTokenizer.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

// Rows as "line:cell|cell", quoted cells in brackets.
class Recorder : public app::CsvTokenizer::Handler
{
public:
    void cell(std::string const& text, bool quoted) override
    {
        m_row += (m_row.empty() ? "" : "|") + (quoted ? "[" + text + "]" : text.empty() ? "~" : text);
    }

    void endOfRow(std::int64_t line, bool blank) override
    {
        rows += std::to_string(line) + ":" + (blank ? "blank" : m_row) + " ";
        m_row.clear();
    }

    std::string rows;

private:
    std::string m_row;
};

std::string rowsOf(std::string const& text, char separator = ',', std::size_t piece = 1000)
{
    Recorder recorder;
    app::CsvTokenizer tokenizer(separator, recorder);
    for (std::size_t at = 0; at < text.size(); at += piece)
        tokenizer.add(text.data() + at, std::min(piece, text.size() - at));
    return tokenizer.finish() ? recorder.rows : "open quote";
}

} // namespace

TEST(CsvTokenizer, CutsRowsAtEveryKindOfLineEnd)
{
    EXPECT_EQ(rowsOf("a,b\n1,2\n"), "1:a|b 2:1|2 ");
    EXPECT_EQ(rowsOf("a,b\r\n1,2\r\n"), "1:a|b 2:1|2 ");
    EXPECT_EQ(rowsOf("a,b\r1,2\r"), "1:a|b 2:1|2 ");
    EXPECT_EQ(rowsOf("a,b\n1,2"), "1:a|b 2:1|2 ");
}

TEST(CsvTokenizer, DoesNotCareWhereThePiecesOfTextEnd)
{
    std::string const text = "\"a\"\"b\",c\r\n\r\n1, 2 \r\n";
    EXPECT_EQ(rowsOf(text), "1:[a\"b]|c 2:blank 3:1|2 ");
    EXPECT_EQ(rowsOf(text, ',', 1), rowsOf(text));
}

TEST(CsvTokenizer, TakesSeparatorsAndLineEndsInQuotesAsText)
{
    EXPECT_EQ(rowsOf("\"a,b\",\"c\nd\"\n1,2\n"), "1:[a,b]|[c\nd] 3:1|2 ");
}

TEST(CsvTokenizer, TrimsBlanksAroundCellsButNotInQuotes)
{
    EXPECT_EQ(rowsOf("  a b  , \" c \" \n"), "1:a b|[ c ] ");
}

TEST(CsvTokenizer, SeesEmptyCells)
{
    EXPECT_EQ(rowsOf(",a,\n"), "1:~|a|~ ");
    EXPECT_EQ(rowsOf("\ta\t\n", '\t'), "1:~|a|~ ");
}

TEST(CsvTokenizer, NoticesAnOpenQuote)
{
    EXPECT_EQ(rowsOf("\"a\n1\n"), "open quote");
}

} // namespace veldraw::tests
