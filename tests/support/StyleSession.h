#pragma once

#include "kernel/session/Session.h"
#include "kernel/style/StyleTree.h"

#include <string>
#include <vector>

namespace veldraw::tests {

/// The process's session with start values in its style tree and one frame, whose data set has two zones and the
/// variables X, Y and P, and which has two line maps. Its events reach the platform's observable and are recorded.
class StyleSession
{
public:
    StyleSession();
    ~StyleSession();

    static kernel::Session& session() { return kernel::Session::instance(); }
    static kernel::StyleTree& tree() { return session().style(); }

    kernel::Frame& frame() { return *m_frame; }
    kernel::LineMap& lineMap(int number) { return m_frame->lineMaps.at(static_cast<std::size_t>(number - 1)); }

    /// Shows a data set of the same kind in another frame, which becomes the active one.
    std::shared_ptr<kernel::Frame> addFrame();

    /// Writes a setting as someone else than the object under test would.
    static void setNumber(std::vector<std::string> const& path, double number);
    static double number(std::vector<std::string> const& path);

    /// Events since the last call, for instance "7 Interface, Data, InterpNPoints" or "19".
    std::vector<std::string> takeEvents();

    StyleSession(StyleSession const&) = delete;
    StyleSession& operator=(StyleSession const&) = delete;

private:
    std::shared_ptr<kernel::Frame> m_frame;
    std::vector<std::string> m_events;
    int m_subscription;
};

inline std::vector<std::string> const exponentPath{"Interface", "Data", "InvDistExponent"};
inline std::vector<std::string> const radiusPath{"Interface", "Data", "InvDistMinRadius"};
inline std::vector<std::string> const pointsPath{"Interface", "Data", "InterpNPoints"};
inline std::vector<std::string> const selectionPath{"Interface", "Data", "InterpPTSelection"};

} // namespace veldraw::tests
