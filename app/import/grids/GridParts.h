#pragma once

namespace veldraw::app {

/// What of a grid is read besides the chosen arrays; for readers that can leave something out.
class GridParts
{
public:
    virtual ~GridParts() = default;

    void leaveOutPoints() { m_wantsPoints = false; }
    void leaveOutCells() { m_wantsCells = false; } ///< those of unstructured grids

protected:
    bool wantsPoints() const { return m_wantsPoints; }
    bool wantsCells() const { return m_wantsCells; }

private:
    bool m_wantsPoints = true;
    bool m_wantsCells = true;
};

} // namespace veldraw::app
