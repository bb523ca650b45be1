#pragma once

#include "app/plot/FrameMessage.h"

#include <QRect>
#include <QRegion>
#include <QString>
#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

namespace veldraw::app {

/// Borders, headers and messages of the frames, and marks of probed places, drawn by Qt over the picture, so that names in any script are sharp and readable.
/// Lets the mouse through.
class PageOverlay : public QWidget
{
    Q_OBJECT

public:
    /// One frame, logical pixels of this widget.
    struct Mark
    {
        QRect area;    ///< with border and header
        QRect content; ///< below the header, inside the border
        QString name;
        FrameMessage message;
        bool isActive = false;
        bool isAlone = false; ///< no other frame is shown
        std::vector<std::pair<int, QPointF>> places = {}; ///< that were probed, with their numbers
    };

    explicit PageOverlay(QWidget* parent);

    /// @param marks in drawing order, the last on top; none: @p emptyText is shown instead
    void setMarks(std::vector<Mark> marks, QString const& emptyText);

    /// Paints the messages alone, without borders and headers, as a picture has them.
    /// @param painter in logical pixels @param isTransparent whether nothing is behind them
    void paintMessages(QPainter& painter, bool isTransparent) const;

    /// Draws a box that the user chooses over the picture; none where it is empty.
    void setBox(QRect const& box);

    /// The strip at the top of a frame's content that holds the remark and a sentence with a strip of its own. Empty if
    /// there is neither, or if it would leave too little room for the picture.
    QRect strip(QRect const& content, FrameMessage const& message) const;

    /// The button in the header that shows a frame alone; empty where the frame is too small for it. @param area of the frame
    static QRect buttonOf(QRect const& area);

    static constexpr int headerHeight = 26;
    static constexpr int borderWidth = 2;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Calls a function for each mark that is seen in a region, with the clip that the ones above leave it.
    void forEachSeen(QPainter& painter, QRegion const& region, std::function<void(Mark const&)> const& paint) const;
    void paintMark(QPainter& painter, Mark const& mark) const;
    void paintMessage(QPainter& painter, Mark const& mark, bool isTransparent) const;
    void paintHeader(QPainter& painter, Mark const& mark) const;
    void paintButton(QPainter& painter, Mark const& mark) const;
    void paintNotice(QPainter& painter, Mark const& mark, bool isTransparent) const;
    void paintRemark(QPainter& painter, Mark const& mark) const;
    void paintPlaces(QPainter& painter, Mark const& mark) const;
    QRect sentenceIn(QRect const& content, QString const& sentence) const;
    void paintEmptyPage(QPainter& painter) const;

    std::vector<Mark> m_marks;
    QString m_emptyText;
    QRect m_box;
};

} // namespace veldraw::app
