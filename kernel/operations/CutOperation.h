#pragma once

#include "kernel/operations/FrameOperation.h"

#include <functional>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// Alters the cuts of a frame; event 7 about them. Refused: a cut that is nowhere, such as one with numbers that are not finite, a normal
/// without a length, or a variable that the data set does not have.
class CutOperation : public FrameOperation
{
public:
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

protected:
    using FrameOperation::FrameOperation;

    static constexpr char noCut[] = "There is no such slice.";

    /// The style value that differs afterwards.
    virtual std::vector<std::string> alteredStyle() const { return {"Cut"}; }

    /// The cuts afterwards. @throws std::bad_alloc, and what keeps them from being altered
    virtual std::vector<Cut> alteredCuts() const = 0;

    bool hasCut(UniqueId cut) const;
};

/// Appends a cut. "New Slice". Refused without a data set.
class AddCut : public CutOperation
{
public:
    AddCut(UniqueId frame, Cut const& cut)
        : CutOperation(frame)
        , m_cut(cut)
    {
    }

    CommandText command() const override { return {}; }
    std::string name() const override { return "New Slice"; }
    std::string reasonAgainst() const override;

protected:
    std::vector<Cut> alteredCuts() const override;

private:
    Cut m_cut;
};

/// Deletes a cut. "Delete Slice". Refused: a cut that the frame does not have.
class DeleteCut : public CutOperation
{
public:
    DeleteCut(UniqueId frame, UniqueId cut)
        : CutOperation(frame)
        , m_cut(cut)
    {
    }

    CommandText command() const override { return {}; }
    std::string name() const override { return "Delete Slice"; }
    std::string reasonAgainst() const override { return hasCut(m_cut) ? "" : noCut; }

protected:
    std::vector<Cut> alteredCuts() const override;

private:
    UniqueId m_cut;
};

/// Alters one cut; without a step when that makes no difference. "Slice". Refused: a cut that the frame does not have.
class ChangeCut : public CutOperation
{
public:
    /// @param alter called with a copy of the cut, more than once; its identifier stays
    /// @param style the style value that it alters
    ChangeCut(UniqueId frame, UniqueId cut, std::function<void(Cut&)> alter, std::vector<std::string> style = {"Cut"})
        : CutOperation(frame)
        , m_cut(cut)
        , m_alter(std::move(alter))
        , m_style(std::move(style))
    {
    }

    CommandText command() const override { return {}; }
    std::string name() const override { return "Slice"; }
    std::string reasonAgainst() const override;

protected:
    std::vector<std::string> alteredStyle() const override { return m_style; }
    std::vector<Cut> alteredCuts() const override;

private:
    UniqueId m_cut;
    std::function<void(Cut&)> m_alter;
    std::vector<std::string> m_style;
};

} // namespace veldraw::kernel
