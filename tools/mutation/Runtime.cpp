// Linked into test programs over mutants: says which mutant is in force, and takes down which tests reach which.
#include "Mutation.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr std::size_t mostMutants = 1 << 17;

int numberInEnvironment()
{
    char const* const number = std::getenv("VELDRAW_MUTATION");
    return number ? std::atoi(number) : -1;
}

// Not an object with a constructor: mutants may be reached before any is made.
char wasReached[mostMutants];

double secondsOfProcessor()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// One line a test: its name, its seconds of processor time, the numbers that it reached. Numbers that are reached outside of
/// all tests come in a line named "-".
class Record : public testing::EmptyTestEventListener
{
public:
    explicit Record(char const* path)
        : m_file(std::fopen(path, "w"))
    {
    }

    void OnTestStart(testing::TestInfo const&) override
    {
        write("-", 0.0);
        m_start = secondsOfProcessor();
    }

    void OnTestEnd(testing::TestInfo const& test) override
    {
        bool const isUsable = test.result()->Passed();
        std::string const name = std::string(isUsable ? "" : "!") + test.test_suite_name() + "." + test.name();
        write(name.c_str(), secondsOfProcessor() - m_start);
    }

    void OnTestProgramEnd(testing::UnitTest const&) override { write("-", 0.0); }

private:
    void write(char const* name, double seconds)
    {
        std::fprintf(m_file, "%s\t%.4f\t", name, seconds);
        for (std::size_t number = 0; number < mostMutants; ++number) {
            if (wasReached[number])
                std::fprintf(m_file, "%zu ", number);
            wasReached[number] = 0;
        }
        std::fprintf(m_file, "\n");
        std::fflush(m_file);
    }

    std::FILE* m_file;
    double m_start = 0.0;
};

bool startRecord()
{
    constexpr char variable[] = "VELDRAW_MUTATION_RECORD";
    char const* const path = std::getenv(variable);
    if (path == nullptr)
        return false;
    testing::UnitTest::GetInstance()->listeners().Append(new Record(path));
    unsetenv(variable); // a test may start the program once more
    return true;
}

} // namespace

int veldrawMutationInForce = numberInEnvironment();
bool veldrawMutationsAreNoted = startRecord();

void veldrawNoteMutation(int number)
{
    if (number >= 0 && static_cast<std::size_t>(number) < mostMutants)
        wasReached[number] = 1;
}
