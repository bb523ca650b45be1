#include "tests/kernel/data/StormLoader.h"

#include <new>
#include <stdexcept>

namespace veldraw::tests {

using namespace kernel;

namespace storm {

bool meet(Trouble trouble, Progress& progress)
{
    switch (trouble) {
    case Trouble::Error:
        throw std::runtime_error("The file has gone.");
    case Trouble::NoMemory:
        throw std::bad_alloc();
    case Trouble::Cancel:
        progress.interrupt();
        break;
    case Trouble::ShortFile:
        return true;
    case Trouble::None:
        break;
    }
    return false;
}

std::shared_ptr<Buffer> bufferOf(Storage const& storage, std::int64_t size)
{
    auto buffer = Buffer::allocate(storage.type, size);
    for (std::int64_t slot = 0; slot < size; ++slot) {
        buffer->setBits(slot, storage.values.at(static_cast<std::size_t>(slot)));
    }
    return buffer;
}

std::shared_ptr<Buffer> Loader::load(Progress& progress)
{
    return bufferOf(m_storage, meet(m_trouble, progress) ? slots - 1 : slots);
}

} // namespace storm

} // namespace veldraw::tests
