#pragma once

#include "app/import/metaimage/MetaImageHeader.h"

#include <fstream>
#include <string>
#include <vector>

namespace veldraw::app {

/// Reads the header of a MetaImage file line by line.
class MetaImageParser
{
public:
    explicit MetaImageParser(std::string const& path);

    /// @throws ImportError naming the line and what is wrong in it
    MetaImageHeader run();

private:
    bool nextLine();
    void take(MetaImageHeader& header);
    void takeShape(MetaImageHeader& header);
    void takePlace(MetaImageHeader& header);
    void takeStorage(MetaImageHeader& header);
    void finish(MetaImageHeader& header) const;
    void refuseUnknownStorage() const;

    bool isKey(std::initializer_list<char const*> names) const;
    std::int64_t integer(std::int64_t least, std::int64_t most) const;
    std::vector<double> numbers(std::size_t most) const;
    bool flag() const;
    RawType elementType() const;
    [[noreturn]] void fail(std::string const& reason) const;

    std::ifstream m_file;
    int m_line = 0;
    std::string m_key;
    std::string m_value;
    std::int64_t m_dimensionCount = 0; // 0: not said yet
    bool m_hasType = false;
    bool m_hasSpacing = false;
};

} // namespace veldraw::app
