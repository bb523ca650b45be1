#include "kernel/compute/NegateValues.h"

#include "kernel/compute/ValueBlock.h"

namespace veldraw::kernel {

namespace {

template <typename Element>
void negateBlock(Element const* source, std::int64_t stride, Element* target, std::int64_t count)
{
    if (stride == 1) {
        for (std::int64_t at = 0; at < count; ++at) {
            target[at] = -source[at];
        }
        return;
    }
    for (std::int64_t at = 0; at < count; ++at) {
        target[at] = -source[at * stride];
    }
}

template <typename Element>
void negateAll(Buffer const& source, Buffer& target, Progress& progress)
{
    auto const* const from = static_cast<Element const*>(source.data());
    auto* const to = static_cast<Element*>(target.mutableData());
    std::int64_t const stride = source.stride();
    forEachBlock(source.size(), progress, [=](std::int64_t first, std::int64_t count) {
        negateBlock(from + first * stride, stride, to + first, count);
    });
}

void negateWholeNumbers(Buffer const& source, Buffer& target, Progress& progress)
{
    forEachBlock(source.size(), progress, [&](std::int64_t first, std::int64_t count) {
        double values[blockSize];
        readBlock(source, first, count, values);
        for (std::int64_t at = 0; at < count; ++at) {
            values[at] = 0.0 - values[at]; // there is but one 0 among whole numbers
        }
        writeBlock(values, first, count, target);
    });
}

} // namespace

void negateValues(Buffer const& source, Buffer& target, Progress& progress)
{
    switch (source.type()) {
    case FieldDataType_Float:
        return negateAll<float>(source, target, progress);
    case FieldDataType_Double:
        return negateAll<double>(source, target, progress);
    default:
        return negateWholeNumbers(source, target, progress);
    }
}

} // namespace veldraw::kernel
