#include "app/import/formats/numpy/ZipArchive.h"

#include "app/files/ImportError.h"
#include "app/files/SizeCheck.h"

#include <algorithm>
#include <zlib.h>

namespace veldraw::app {

namespace {

constexpr std::uint64_t bytesOfEnd = 22;
constexpr std::uint64_t longestComment = 65535;
constexpr std::uint64_t bytesOfEntry = 46;
constexpr std::uint64_t bytesOfStart = 30;
constexpr double mostUnpacked = 1032.0; // what deflate makes of a byte at most

[[noreturn]] void refuseZip()
{
    throw ImportError("it is damaged or incomplete: it is no sound zip archive");
}

std::string inflated(std::string_view packed, std::uint64_t size)
{
    if (static_cast<double>(size) > mostUnpacked * static_cast<double>(packed.size()) + 64.0)
        refuseZip();
    checkMemoryFor(static_cast<double>(size));
    std::string result(static_cast<std::size_t>(size), '\0');
    z_stream stream{};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    if (::inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        throw std::bad_alloc();
    int const end = ::inflate(&stream, Z_FINISH);
    bool const isWhole = end == Z_STREAM_END && stream.avail_out == 0;
    ::inflateEnd(&stream);
    if (!isWhole)
        refuseZip();
    return result;
}

} // namespace

ZipArchive::ZipArchive(std::string_view bytes)
    : m_bytes(bytes)
{
    if (bytes.size() < bytesOfEnd)
        refuseZip();
    std::size_t const end = bytes.rfind("PK\x05\x06", bytes.size() - bytesOfEnd);
    if (end == std::string_view::npos || bytes.size() - end > bytesOfEnd + longestComment)
        refuseZip();
    std::uint32_t const count = number(end + 10, 2);
    std::uint64_t at = number(end + 16, 4);
    for (std::uint32_t n = 0; n < count; ++n) {
        m_entries.push_back(entryAt(at));
        at += bytesOfEntry + number(at + 28, 2) + number(at + 30, 2) + number(at + 32, 2);
    }
}

std::uint32_t ZipArchive::number(std::uint64_t at, int bytes) const
{
    if (at > m_bytes.size() || m_bytes.size() - at < static_cast<std::uint64_t>(bytes))
        refuseZip();
    std::uint32_t result = 0;
    for (int n = bytes; n > 0; --n)
        result = result << 8U | static_cast<unsigned char>(m_bytes[at + static_cast<std::uint64_t>(n) - 1]);
    return result;
}

ZipArchive::Entry ZipArchive::entryAt(std::uint64_t at) const
{
    constexpr std::uint32_t signature = 0x02014b50;
    if (number(at, 4) != signature)
        refuseZip();
    bool const isSecret = (number(at + 8, 2) & 1U) != 0;
    Entry entry{{},
                static_cast<int>(number(at + 10, 2)),
                number(at + 16, 4),
                number(at + 20, 4),
                number(at + 24, 4),
                number(at + 42, 4)};
    if (isSecret || (entry.method != 0 && entry.method != 8))
        throw ImportError("its files are packed in a way that is not read");
    if (std::max({entry.packed, entry.size, entry.start}) == UINT32_MAX)
        throw ImportError("it has more than 4 gigabytes, which is not read");
    std::uint32_t const length = number(at + 28, 2);
    number(at + bytesOfEntry + length, 0);
    entry.name = m_bytes.substr(at + bytesOfEntry, length);
    return entry;
}

std::string ZipArchive::content(Entry const& entry) const
{
    constexpr std::uint32_t signature = 0x04034b50;
    if (number(entry.start, 4) != signature)
        refuseZip();
    std::uint64_t const start = entry.start + bytesOfStart + number(entry.start + 26, 2) + number(entry.start + 28, 2);
    if (start > m_bytes.size() || entry.packed > m_bytes.size() - start)
        refuseZip();
    std::string_view const packed = m_bytes.substr(start, entry.packed);
    if (entry.method == 0 && entry.packed != entry.size)
        refuseZip();
    std::string result = entry.method == 0 ? std::string(packed) : inflated(packed, entry.size);
    if (::crc32_z(0, reinterpret_cast<Bytef const*>(result.data()), result.size()) != entry.checksum)
        refuseZip();
    return result;
}

} // namespace veldraw::app
