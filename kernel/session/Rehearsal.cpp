#include "kernel/session/Rehearsal.h"

#include "kernel/operations/Operation.h"

namespace veldraw::kernel {

namespace {

Rehearsal*& living()
{
    static Rehearsal* rehearsal = nullptr;
    return rehearsal;
}

} // namespace

Rehearsal::Rehearsal()
{
    living() = this;
}

Rehearsal::~Rehearsal()
{
    living() = nullptr;
}

Rehearsal* Rehearsal::current()
{
    return living();
}

void Rehearsal::note(Operation const& operation)
{
    CommandText const command = operation.command();
    if (!command.isEmpty()) {
        m_commands.push_back(command.text());
    }
}

} // namespace veldraw::kernel
