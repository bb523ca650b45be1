#include "app/export/writing/FileRights.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/WriteReason.h"

#include <cerrno>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

bool meansNoList(int error)
{
    return error == ENODATA || error == ENOTSUP || error == ENOSYS;
}

std::vector<char> listOf(std::string const& path, char const* name)
{
    ssize_t const size = ::getxattr(path.c_str(), name, nullptr, 0);
    if (size < 0 && !meansNoList(errno))
        throwReason(errno);
    std::vector<char> content(size > 0 ? static_cast<std::size_t>(size) : 0);
    if (!content.empty() && ::getxattr(path.c_str(), name, content.data(), content.size()) != size)
        throw ExportError("its access control list changes at the moment");
    return content;
}

} // namespace

FileRights::FileRights(std::string const& path)
{
    struct stat facts
    {
    };
    if (::stat(path.c_str(), &facts) != 0)
        throwReason(errno);
    m_owner = facts.st_uid;
    m_group = facts.st_gid;
    m_mode = facts.st_mode & 07777;
    for (char const* name : {"system.posix_acl_access", "system.posix_acl_default"}) {
        if (S_ISDIR(facts.st_mode) || m_lists.empty())
            m_lists.push_back({name, listOf(path, name)});
    }
}

// Where the group is another, or a list tells more of it, its members may be others to the other file.
void FileRights::narrowTo(FileRights const& other)
{
    mode_t allowed = other.m_mode;
    if (m_group != other.m_group || !(m_lists == other.m_lists))
        allowed &= ~static_cast<mode_t>(S_IRWXG) | (other.m_mode & S_IRWXO) << 3;
    m_mode &= allowed;
}

bool FileRights::operator==(FileRights const& other) const
{
    return m_owner == other.m_owner && m_group == other.m_group && m_mode == other.m_mode && m_lists == other.m_lists;
}

// The permissions come last: to change the owner takes some of them away, and to set a list changes them.
void FileRights::giveTo(int descriptor) const
{
    struct stat facts
    {
    };
    if (::fstat(descriptor, &facts) != 0)
        throwReason(errno);
    if ((facts.st_uid != m_owner || facts.st_gid != m_group) && ::fchown(descriptor, m_owner, m_group) != 0)
        throw ExportError("the file that is there belongs to another user or group, which a new one would not");
    for (List const& list : m_lists) {
        bool const done = list.content.empty()
                              ? ::fremovexattr(descriptor, list.name) == 0 || meansNoList(errno)
                              : ::fsetxattr(descriptor, list.name, list.content.data(), list.content.size(), 0) == 0;
        if (!done)
            throw ExportError("the access control list of the file that is there cannot be kept");
    }
    if (::fchmod(descriptor, m_mode) != 0)
        throw ExportError("the permissions of the file that is there cannot be kept");
}

} // namespace veldraw::app
