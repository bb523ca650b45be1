#pragma once

#include "app/plot/FrameMessage.h"

#include <QRect>
#include <QRegion>
#include <QString>
#include <QWidget>

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
        std::vector<std::pair<int, QPointF>> places = {}; ///< that were probed, with their numbers
    };

    explicit PageOverlay(QWidget* parent);

    /// @param marks in drawing order, the last on top; none: @p emptyText is shown instead
    /// @param isBare messages only: no borders and no headers
    void setMarks(std::vector<Mark> marks, QString const& emptyText, bool isBare = false);

    /// The strip at the top of a frame's content that holds the remark and a sentence with a strip of its own. Empty if
    /// there is neither, or if it would leave too little room for the picture.
    QRect strip(QRect const& content, FrameMessage const& message) const;

    static constexpr int headerHeight = 26;
    static constexpr int borderWidth = 2;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintMark(QPainter& painter, Mark const& mark) const;
    void paintHeader(QPainter& painter, Mark const& mark) const;
    void paintNotice(QPainter& painter, Mark const& mark) const;
    void paintRemark(QPainter& painter, Mark const& mark) const;
    void paintPlaces(QPainter& painter, Mark const& mark) const;
    QRect sentenceIn(QRect const& content, QString const& sentence) const;
    void paintEmptyPage(QPainter& painter) const;

    std::vector<Mark> m_marks;
    QString m_emptyText;
    bool m_isBare = false;
};

} // namespace veldraw::app
