#include "app/files/SystemReason.h"

#include <cerrno>
#include <cstring>

namespace veldraw::app {

std::string systemReason(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return "there is no such file";
    case EACCES:
    case EPERM:
        return "you have no permission";
    case EISDIR:
        return "it is a folder";
    case ENOSPC:
        return "the disk is full";
    case EDQUOT:
        return "your share of the disk is used up";
    case EFBIG:
        return "it would be larger than a file may be";
    case EROFS:
        return "the disk can only be read";
    case EIO:
        return "the disk has failed";
    case ESTALE:
        return "its server has lost it";
    case ENAMETOOLONG:
        return "its name is too long";
    case ELOOP:
        return "its links lead in a circle";
    case EMFILE:
    case ENFILE:
        return "too many files are open";
    case ENOMEM:
        return "there is not enough memory for it";
    default:
        return std::strerror(error);
    }
}

} // namespace veldraw::app
