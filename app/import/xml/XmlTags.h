#pragma once

#include "kernel/base/Progress.h"

#include <cstdint>
#include <fstream>
#include <map>
#include <string>
#include <string_view>

namespace veldraw::app {

/// Walks over the tags of a VTK XML file without keeping what stands between them, as far as the appended data.
///
/// Not a parser: it finds the few attributes that matter before a real one is let loose on a file of any size.
class XmlTags
{
public:
    struct Tag
    {
        std::string name;                              ///< with a leading '/' for an end tag
        std::map<std::string, std::string> attributes; ///< with entities resolved
        bool isEmpty = false;                          ///< a start tag that is its own end tag

        /// The attribute as a number, @p otherwise when it is missing or none.
        double number(std::string const& attribute, double otherwise) const;
        /// A number of things, @p otherwise when the attribute is missing, NaN when it is no whole decimal number: others
        /// might be understood differently by who reads the file in the end.
        double count(std::string const& attribute, double otherwise) const;
        std::string text(std::string const& attribute) const;
    };

    /// @param progress outlives this; its interrupt ends the walk
    XmlTags(std::string const& path, kernel::Progress const& progress);

    /// Reads the next start or end tag; comments and the like are skipped.
    /// @return false at the end, after the tag AppendedData, or in a tag without end
    /// @throws ImportError when the file has what might be understood differently by who reads it in the end: entities of its own, a tag of
    /// enormous length, the start of appended data in a comment or in quotes
    /// @throws kernel::Interrupted
    bool next(Tag& tag);

    /// Position behind the last tag, in bytes from the start of the file.
    std::int64_t position() const { return m_position; }

    /// Where the appended data start, in bytes from the start of the file, as VTK's reader sees it: behind the blanks and one
    /// underscore. To be called once, after next() has come to the tag AppendedData.
    std::int64_t startOfAppendedData();

private:
    bool skipTo(char wanted);
    bool skipPast(std::string_view wanted);
    bool readMarkup(std::string& text);
    int get();

    kernel::Progress const& m_progress;
    std::ifstream m_file;
    std::int64_t m_position = 0;
    bool m_atAppendedData = false;
};

} // namespace veldraw::app
