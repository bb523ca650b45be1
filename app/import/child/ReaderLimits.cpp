#include "app/import/child/ReaderLimits.h"

#include "app/files/FileStamp.h"
#include "app/files/SizeCheck.h"

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr double shareOfMemory = 0.8;
constexpr double leastBytes = 256e6;
constexpr double bytesPerByte = 40.0;             // an empty text takes one byte and becomes an object
constexpr double bytesPerCompressedByte = 2500.0; // deflate does not get beyond 1032, and cells become wider
constexpr double leastSeconds = 5.0;
constexpr double leastQuietSeconds = 30.0;
constexpr double quietTimesInAll = 10.0;
constexpr double bytesPerSecond = 2e6; // slower than any machine reads numbers
constexpr double compressedBytesPerSecond = 5e4;

} // namespace

ReaderLimits ReaderLimits::forFile(std::string const& path, bool isCompressed)
{
    return forBytes(static_cast<double>(FileStamp(path).size()), isCompressed);
}

ReaderLimits ReaderLimits::forBytes(double size, bool isCompressed)
{
    double const wanted = leastBytes + size * (isCompressed ? bytesPerCompressedByte : bytesPerByte);
    double const available = std::min(availableMemory() * shareOfMemory, 1e15);
    double const work = size / (isCompressed ? compressedBytesPerSecond : bytesPerSecond);
    double const quiet = leastQuietSeconds + work;
    return {static_cast<std::int64_t>(std::min(wanted, available)), static_cast<std::int64_t>(leastSeconds + work),
            static_cast<std::int64_t>(quiet), static_cast<std::int64_t>(quietTimesInAll * quiet)};
}

} // namespace veldraw::app
