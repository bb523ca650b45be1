#include "app/handover/ReadRequest.h"

#include "app/handover/ByteWriter.h"
#include "app/handover/HandedArray.h"

namespace veldraw::app {

std::string ReadRequest::asBytes() const
{
    ByteWriter to;
    to.number(static_cast<std::uint8_t>(what));
    to.text(path);
    to.text(extension);
    to.texts(fieldData);
    to.text(text);
    return to.bytes();
}

ReadRequest ReadRequest::fromBytes(std::string_view bytes)
{
    ByteReader from(bytes);
    ReadRequest request;
    request.what = from.enumerator(What::Format);
    request.path = from.text(handover::longestName); // of any bytes
    request.extension = from.name(handover::longestName);
    request.fieldData = from.names(handover::longestName);
    request.text = from.text(longestText);
    from.expectEnd();
    return request;
}

std::string FoundArrays::asBytes() const
{
    ByteWriter to;
    to.texts(ofPoints);
    to.texts(ofCells);
    to.number(unreadFieldData);
    return to.bytes();
}

FoundArrays FoundArrays::fromBytes(std::string_view bytes)
{
    ByteReader from(bytes);
    FoundArrays found;
    found.ofPoints = from.names(handover::longestName);
    found.ofCells = from.names(handover::longestName);
    found.unreadFieldData = from.number<std::int32_t>();
    from.expectEnd();
    if (found.ofPoints.size() > handover::mostArrays || found.ofCells.size() > handover::mostArrays)
        throw Nonsense("more arrays than can be told apart");
    return found;
}

std::string ReadChoice::asBytes() const
{
    ByteWriter to;
    to.texts(ofPoints);
    to.texts(ofCells);
    to.flag(points);
    to.flag(cells);
    return to.bytes();
}

ReadChoice ReadChoice::fromBytes(std::string_view bytes)
{
    ByteReader from(bytes);
    ReadChoice choice;
    choice.ofPoints = from.names(handover::longestName);
    choice.ofCells = from.names(handover::longestName);
    choice.points = from.flag();
    choice.cells = from.flag();
    from.expectEnd();
    return choice;
}

std::string Refusal::asBytes() const
{
    ByteWriter to;
    to.flag(isForMemory);
    to.text(reason);
    return to.bytes();
}

Refusal Refusal::fromBytes(std::string_view bytes)
{
    ByteReader from(bytes);
    Refusal refusal;
    refusal.isForMemory = from.flag();
    refusal.reason = from.name(handover::longestName);
    from.expectEnd();
    return refusal;
}

} // namespace veldraw::app
