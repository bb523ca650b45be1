#pragma once

#include <string>
#include <vector>

namespace veldraw::kernel {

class Operation;

/// As long as an object of this class lives, sessions check operations and note their commands instead of carrying them out: each is
/// refused after that, so that nothing changes. An operation that has to be refused anyway is not noted. For the main thread, one at a time.
///
///     Rehearsal const rehearsal;
///     applyButton.click();
///     clipboard.setText(rehearsal.commands().front());
class Rehearsal
{
public:
    /// Why an operation is refused that might be carried out.
    static constexpr char refusal[] = "The operation was not carried out, only noted.";

    Rehearsal();
    ~Rehearsal();

    /// The one that lives; null for none.
    static Rehearsal* current();

    /// Notes an operation that would be carried out now. @throws std::bad_alloc
    void note(Operation const& operation);

    /// The commands of the operations; none for those that no command stands for.
    std::vector<std::string> const& commands() const { return m_commands; }

    Rehearsal(Rehearsal const&) = delete;
    Rehearsal& operator=(Rehearsal const&) = delete;

private:
    std::vector<std::string> m_commands;
};

} // namespace veldraw::kernel
