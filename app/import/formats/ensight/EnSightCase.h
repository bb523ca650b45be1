#pragma once

#include <string>
#include <utility>
#include <vector>

namespace veldraw::app {

/// What stands in an EnSight case file, as far as other files and their moments are concerned.
struct EnSightCase
{
    /// A file with a grid or a variable, or several, one for each moment.
    struct Part
    {
        std::string pattern; ///< name; a run of "*" stands for the digits of a number
        int timeSet = 0;     ///< 0 for none
        int components = 0;  ///< of a variable; 0 for a geometry
        std::string kind{};  ///< of a variable: "scalar per node" and so on
        std::string name{};  ///< of a variable
    };

    /// A file of a part at some moment.
    struct File
    {
        Part const* part; ///< of the case
        std::string name;
    };

    /// Moments, and the numbers of the files that belong to them.
    struct TimeSet
    {
        int number = 0;
        std::vector<double> times;
        std::vector<long> files; ///< as many as times, or none where names have no number
    };

    /// @throws ImportError when it is no case of the Gold format, or contradicts itself
    static EnSightCase of(std::string const& path);

    /// All moments, in order; none of a case without any.
    std::vector<double> times() const;

    /// Names of all files, each once.
    std::vector<std::string> files() const;

    /// A case of the files of one moment, for a reader that need not know any others. Names have a mark in front.
    std::string textAt(double time, char mark) const;

    /// Those that one moment takes: for each part the last one that is not later, or the first.
    std::vector<File> filesAt(double time) const;

    std::vector<Part> parts;
    std::vector<TimeSet> timeSets;
    std::vector<std::string> leftOut;                           ///< lines of things that are not read
    std::vector<std::pair<std::string, std::string>> constants; ///< names and values
};

} // namespace veldraw::app
