#include "app/plot/PageOverlay.h"

#include "app/plot/PlotTheme.h"

#include <QPaintEvent>
#include <QPainter>

namespace veldraw::app {

namespace {

QFont headerFont(QFont font, bool bold)
{
    font.setPixelSize(13);
    font.setWeight(bold ? QFont::DemiBold : QFont::Normal);
    return font;
}

QFont noticeFont(QFont font, int pixels)
{
    font.setPixelSize(pixels);
    return font;
}

constexpr int sentenceSize = 12;
constexpr int sentenceFlags = Qt::AlignTop | Qt::AlignHCenter | Qt::TextWordWrap;
constexpr QMargins aroundSentence(14, 10, 14, 10);
constexpr int remarkSize = 11;
constexpr int remarkFlags = Qt::AlignTop | Qt::AlignRight | Qt::TextWordWrap;
constexpr QMargins aroundRemark(8, 4, 8, 4);

} // namespace

PageOverlay::PageOverlay(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void PageOverlay::setMarks(std::vector<Mark> marks, QString const& emptyText)
{
    m_marks = std::move(marks);
    m_emptyText = emptyText;
    update();
}

void PageOverlay::setBox(QRect const& box)
{
    m_box = box;
    update();
}

void PageOverlay::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_marks.empty())
        paintEmptyPage(painter);
    forEachSeen(painter, event->region(), [&](Mark const& mark) { paintMark(painter, mark); });
}

void PageOverlay::paintMessages(QPainter& painter, bool isTransparent) const
{
    QRegion everything;
    for (Mark const& mark : m_marks)
        everything += mark.area;
    painter.setRenderHint(QPainter::Antialiasing);
    forEachSeen(painter, everything, [&](Mark const& mark) { paintMessage(painter, mark, isTransparent); });
    painter.setClipping(false);
}

void PageOverlay::forEachSeen(QPainter& painter, QRegion const& region,
                              std::function<void(Mark const&)> const& paint) const
{
    for (std::size_t n = 0; n < m_marks.size(); ++n) {
        QRegion visible = QRegion(m_marks[n].area) & region;
        for (std::size_t above = n + 1; above < m_marks.size(); ++above)
            visible -= m_marks[above].area;
        if (visible.isEmpty())
            continue;
        painter.setClipRegion(visible);
        paint(m_marks[n]);
    }
    if (m_box.isEmpty())
        return;
    painter.setClipping(false);
    QColor inside = PlotTheme::accent();
    painter.setPen(inside);
    inside.setAlpha(32);
    painter.setBrush(inside);
    painter.drawRect(QRectF(m_box).adjusted(0.5, 0.5, -0.5, -0.5));
}

void PageOverlay::paintMark(QPainter& painter, Mark const& mark) const
{
    paintMessage(painter, mark, false);
    paintPlaces(painter, mark);
    paintHeader(painter, mark);
    qreal const width = mark.isActive ? borderWidth : 1.0;
    painter.setPen(QPen(mark.isActive ? PlotTheme::accent() : PlotTheme::border(), width, Qt::SolidLine, Qt::SquareCap,
                        Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing, false);
    int const inset = mark.isActive ? 1 : 0;
    painter.drawRect(mark.area.adjusted(inset, inset, -1, -1));
    painter.setRenderHint(QPainter::Antialiasing, true);
}

void PageOverlay::paintMessage(QPainter& painter, Mark const& mark, bool isTransparent) const
{
    if (!isTransparent)
        painter.fillRect(strip(mark.content, mark.message), PlotTheme::paper());
    if (!mark.message.remark.isEmpty())
        paintRemark(painter, mark);
    if (!mark.message.sentence.isEmpty())
        paintNotice(painter, mark, isTransparent);
}

void PageOverlay::paintHeader(QPainter& painter, Mark const& mark) const
{
    QRect header = mark.area;
    header.setHeight(headerHeight);
    // The strip beside the content belongs to nobody else: it is filled up to where the picture begins.
    painter.fillRect(QRect(mark.area.left(), header.top(), mark.area.width(), headerHeight),
                     mark.isActive ? PlotTheme::accentHeader() : PlotTheme::header());
    painter.fillRect(QRect(header.left(), header.bottom(), header.width(), 1),
                     mark.isActive ? PlotTheme::accent().lighter(150) : PlotTheme::border());
    painter.setFont(headerFont(font(), mark.isActive));
    painter.setPen(mark.isActive ? PlotTheme::accentText() : PlotTheme::quietText());
    QRect const text = header.adjusted(10, 0, -10 - buttonOf(mark.area).width(), 0);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(mark.name, Qt::ElideRight, text.width()));
    paintButton(painter, mark);
}

QRect PageOverlay::buttonOf(QRect const& area)
{
    bool const hasRoom = area.width() >= 4 * headerHeight && area.height() >= 2 * headerHeight;
    return hasRoom ? QRect(area.right() - headerHeight, area.top() + 2, headerHeight - 4, headerHeight - 4) : QRect();
}

// A window, or two that overlap: what a click brings.
void PageOverlay::paintButton(QPainter& painter, Mark const& mark) const
{
    QRect const button = buttonOf(mark.area);
    if (button.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    QRect const window(button.center() - QPoint(5, 5), QSize(10, 10));
    if (mark.isAlone) {
        painter.drawRect(window.adjusted(0, 3, -3, 0));
        painter.drawPolyline(QPolygon({window.topLeft() + QPoint(3, 2), window.topLeft() + QPoint(3, 0),
                                       window.topLeft() + QPoint(10, 0), window.topLeft() + QPoint(10, 7),
                                       window.topLeft() + QPoint(8, 7)}));
    } else {
        painter.drawRect(window);
        painter.drawLine(window.topLeft() + QPoint(0, 1), window.topLeft() + QPoint(10, 1));
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
}

void PageOverlay::paintNotice(QPainter& painter, Mark const& mark, bool isTransparent) const
{
    if (mark.message.replacesPicture) {
        if (!isTransparent)
            painter.fillRect(mark.content, PlotTheme::paper());
        painter.setFont(noticeFont(font(), 15));
        painter.setPen(PlotTheme::quietText());
        painter.drawText(mark.content.adjusted(16, 8, -16, -8), Qt::AlignCenter | Qt::TextWordWrap,
                         mark.message.sentence);
        return;
    }
    painter.setFont(noticeFont(font(), sentenceSize));
    int const top = mark.message.hasOwnStrip ? 0 : strip(mark.content, mark.message).height();
    QRect const text = sentenceIn(mark.content.adjusted(0, top, 0, 0), mark.message.sentence);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xFF, 0xF4, 0xD6, 235));
    painter.drawRoundedRect(text.adjusted(-9, -4, 9, 4), 4, 4);
    painter.setPen(QColor(0x6B, 0x4E, 0x00));
    painter.drawText(text, Qt::AlignCenter | Qt::TextWordWrap, mark.message.sentence);
}

QRect PageOverlay::sentenceIn(QRect const& content, QString const& sentence) const
{
    return QFontMetrics(noticeFont(font(), sentenceSize))
        .boundingRect(content.marginsRemoved(aroundSentence), sentenceFlags, sentence);
}

QRect PageOverlay::strip(QRect const& content, FrameMessage const& message) const
{
    int height = 0;
    if (!message.remark.isEmpty())
        height = QFontMetrics(noticeFont(font(), remarkSize))
                     .boundingRect(content.marginsRemoved(aroundRemark), remarkFlags, message.remark)
                     .height() +
                 aroundRemark.top() + aroundRemark.bottom();
    if (message.hasOwnStrip && !message.sentence.isEmpty())
        height = sentenceIn(content, message.sentence).height() + aroundSentence.top() + aroundSentence.bottom();
    return height == 0 || 3 * height > content.height() ? QRect()
                                                        : QRect(content.topLeft(), QSize(content.width(), height));
}

void PageOverlay::paintRemark(QPainter& painter, Mark const& mark) const
{
    QRect const room = strip(mark.content, mark.message);
    if (room.isEmpty())
        return;
    painter.setFont(noticeFont(font(), remarkSize));
    painter.setPen(PlotTheme::quietText());
    painter.drawText(room.marginsRemoved(aroundRemark), remarkFlags, mark.message.remark);
}

// A ring with a number, dark on white so that it is seen on every colour.
void PageOverlay::paintPlaces(QPainter& painter, Mark const& mark) const
{
    constexpr double radius = 5.0;
    painter.setFont(headerFont(font(), true));
    for (auto const& [probe, place] : mark.places) {
        painter.setBrush(Qt::NoBrush);
        for (auto const& [colour, width] : {std::pair(PlotTheme::paper(), 4.0), {PlotTheme::picked(), 2.0}}) {
            painter.setPen(QPen(colour, width));
            painter.drawEllipse(place, radius, radius);
        }
        QString const number = QString::number(probe);
        QRectF const label(place.x() + radius + 3.0, place.y() - radius - 14.0,
                           painter.fontMetrics().horizontalAdvance(number) + 8.0, 17.0);
        painter.setPen(Qt::NoPen);
        painter.setBrush(PlotTheme::paper());
        painter.drawRoundedRect(label, 3.0, 3.0);
        painter.setPen(PlotTheme::text());
        painter.drawText(label, Qt::AlignCenter, number);
    }
}

void PageOverlay::paintEmptyPage(QPainter& painter) const
{
    painter.setFont(noticeFont(font(), 18));
    painter.setPen(PlotTheme::quietText());
    painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}

} // namespace veldraw::app
