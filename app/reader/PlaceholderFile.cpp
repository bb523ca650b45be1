#include "app/reader/PlaceholderFile.h"

#include <vtkAOSDataArrayTemplate.h>
#include <vtkCellData.h>
#include <vtkDataSet.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkPointData.h>
#include <vtkPointSet.h>
#include <vtkRectilinearGrid.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <new>
#include <set>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace veldraw::app {

namespace {

constexpr std::size_t bytesToWriteAtOnce = std::size_t{1} << 20;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

struct Word
{
    std::size_t first;
    std::size_t last;
};

std::vector<Word> wordsOf(std::string const& line)
{
    std::vector<Word> words;
    for (std::size_t at = 0; at < line.size();) {
        while (at < line.size() && isBlank(line[at]))
            ++at;
        std::size_t const first = at;
        while (at < line.size() && !isBlank(line[at]))
            ++at;
        if (at > first)
            words.push_back({first, at});
    }
    return words;
}

bool isNumber(std::string const& word)
{
    char* end = nullptr;
    std::strtod(word.c_str(), &end);
    return *end == '\0';
}

// 0 for not a number, 1 for infinity, 2 for minus infinity; -1 for a number.
int kindOfNumber(std::string const& word)
{
    std::size_t const first = word[0] == '-' || word[0] == '+' ? 1 : 0;
    if (first == word.size())
        return -1;
    char const letter = word[first];
    if (letter == 'n' || letter == 'N')
        return 0;
    if (letter == 'i' || letter == 'I')
        return word[0] == '-' ? 2 : 1;
    return -1;
}

// Lines with a word that is no number name something, which could be called "nan".
bool areNumbers(std::string const& line, std::vector<Word> const& words)
{
    for (Word const& word : words) {
        if (!isNumber(line.substr(word.first, word.last - word.first)))
            return false;
    }
    return true;
}

bool hasNotFiniteNumbers(std::string const& line)
{
    if (line.find_first_of("nN") == std::string::npos)
        return false;
    std::vector<Word> const words = wordsOf(line);
    bool isThere = false;
    for (Word const& word : words)
        isThere = isThere || kindOfNumber(line.substr(word.first, word.last - word.first)) >= 0;
    return isThere && areNumbers(line, words);
}

bool hasNotFiniteNumbers(std::ifstream& file)
{
    std::string line;
    for (int number = 0; std::getline(file, line); ++number) {
        if (number == 2 && line.compare(0, 5, "ASCII") != 0)
            return false;
        if (number > 2 && hasNotFiniteNumbers(line))
            return true;
    }
    return false;
}

std::vector<vtkFieldData*> arraysOf(vtkDataObject& data)
{
    std::vector<vtkFieldData*> result{data.GetFieldData()};
    if (auto* const grid = vtkDataSet::SafeDownCast(&data))
        result.insert(result.end(), {grid->GetPointData(), grid->GetCellData()});
    return result;
}

// Each array once.
void collect(vtkDataObject* data, std::set<vtkDataArray*>& arrays)
{
    if (!data)
        return;
    for (vtkFieldData* const list : arraysOf(*data)) {
        for (int n = 0; list && n < list->GetNumberOfArrays(); ++n)
            arrays.insert(list->GetArray(n));
    }
    if (auto* const grid = vtkPointSet::SafeDownCast(data); grid && grid->GetPoints())
        arrays.insert(grid->GetPoints()->GetData());
    if (auto* const grid = vtkRectilinearGrid::SafeDownCast(data))
        arrays.insert({grid->GetXCoordinates(), grid->GetYCoordinates(), grid->GetZCoordinates()});
    auto* const blocks = vtkMultiBlockDataSet::SafeDownCast(data);
    for (unsigned int n = 0; blocks && n < blocks->GetNumberOfBlocks(); ++n)
        collect(blocks->GetBlock(n), arrays);
}

// @return how many were replaced
template <typename Number>
std::size_t replace(vtkDataArray* array, Number placeholder, Number meant)
{
    auto* const values = vtkAOSDataArrayTemplate<Number>::FastDownCast(array);
    std::size_t count = 0;
    for (vtkIdType n = 0; values && n < values->GetNumberOfValues(); ++n) {
        if (values->GetValue(n) == placeholder) {
            values->SetValue(n, meant);
            ++count;
        }
    }
    return count;
}

} // namespace

std::optional<PlaceholderFile> PlaceholderFile::of(std::string const& path, int attempt)
{
    std::ifstream file(path, std::ios::binary);
    if (!hasNotFiniteNumbers(file))
        return std::nullopt;
    PlaceholderFile result;
    std::string const exponent = "e-2" + std::to_string(7 + attempt);
    result.m_placeholders = {"-7.3192619" + exponent, "-7.4292619" + exponent, "-7.5392619" + exponent};
    result.m_file.reset(::memfd_create("text", MFD_CLOEXEC));
    if (!result.m_file.isOpen())
        throw std::bad_alloc();
    result.copy(path);
    return result;
}

std::string PlaceholderFile::path() const
{
    return "/proc/self/fd/" + std::to_string(m_file.number());
}

void PlaceholderFile::copy(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    for (std::string line; std::getline(file, line);)
        add(line);
    write();
}

void PlaceholderFile::add(std::string const& line)
{
    std::size_t copied = 0;
    if (hasNotFiniteNumbers(line)) {
        for (Word const& word : wordsOf(line)) {
            int const kind = kindOfNumber(line.substr(word.first, word.last - word.first));
            if (kind < 0)
                continue;
            m_bytes.append(line, copied, word.first - copied);
            m_bytes += m_placeholders[static_cast<std::size_t>(kind)];
            ++m_counts[static_cast<std::size_t>(kind)];
            copied = word.last;
        }
    }
    m_bytes.append(line, copied, std::string::npos);
    m_bytes += '\n';
    if (m_bytes.size() >= bytesToWriteAtOnce)
        write();
}

void PlaceholderFile::write()
{
    for (std::size_t done = 0; done < m_bytes.size();) {
        ssize_t const written = ::write(m_file.number(), m_bytes.data() + done, m_bytes.size() - done);
        if (written < 0 && errno != EINTR)
            throw std::bad_alloc();
        done += written > 0 ? static_cast<std::size_t>(written) : 0;
    }
    m_bytes.clear();
}

bool PlaceholderFile::restore(vtkDataObject& data) const
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr std::array<double, kinds> meant{std::numeric_limits<double>::quiet_NaN(), infinity, -infinity};
    std::set<vtkDataArray*> arrays;
    collect(&data, arrays);
    bool areAllThere = true;
    for (std::size_t kind = 0; kind < kinds; ++kind) {
        char const* const placeholder = m_placeholders[kind].c_str();
        std::size_t count = 0;
        for (vtkDataArray* const array : arrays) {
            count += replace<double>(array, std::strtod(placeholder, nullptr), meant[kind]);
            count += replace<float>(array, std::strtof(placeholder, nullptr), static_cast<float>(meant[kind]));
        }
        areAllThere = areAllThere && count == m_counts[kind];
    }
    return areAllThere;
}

} // namespace veldraw::app
