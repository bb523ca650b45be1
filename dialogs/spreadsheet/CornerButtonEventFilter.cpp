#include "dialogs/spreadsheet/CornerButtonEventFilter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QStyleOptionHeader>
#include <QStylePainter>
#include <QTableView>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// Room between the text and the header's edges beyond what the style asks for, in pixels.
constexpr int margin = 6;

} // namespace

CornerButtonEventFilter::CornerButtonEventFilter(QTableView& table,
                                                 boost::shared_ptr<Property<std::string>> const& cornerLabel)
    : QObject(&table)
    , m_table(table)
    , m_cornerButton(table.findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly))
    , m_cornerLabel(cornerLabel)
{
    if (m_cornerButton)
        m_cornerButton->installEventFilter(this);
    m_connections.add(m_cornerLabel->connectValueChanged([this](std::string const&) { fitRowHeader(); }));
    fitRowHeader();
}

CornerButtonEventFilter::~CornerButtonEventFilter() = default;

bool CornerButtonEventFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Paint || watched != m_cornerButton)
        return QObject::eventFilter(watched, event);
    paintCorner();
    return true;
}

void CornerButtonEventFilter::paintCorner() const
{
    QStyleOptionHeader option;
    option.initFrom(m_cornerButton);
    option.state = QStyle::State_None;
    if (m_cornerButton->isEnabled())
        option.state |= QStyle::State_Enabled;
    if (m_cornerButton->isActiveWindow())
        option.state |= QStyle::State_Active;
    if (m_cornerButton->isDown())
        option.state |= QStyle::State_Sunken;
    option.rect = m_cornerButton->rect();
    option.text = m_cornerButton->text();
    option.textAlignment = Qt::AlignCenter;
    option.position = QStyleOptionHeader::OnlyOneSection;
    QStylePainter(m_cornerButton, m_cornerButton).drawControl(QStyle::CE_Header, option);
}

void CornerButtonEventFilter::fitRowHeader() const
{
    QStyleOptionHeader option;
    // The property and not the button: the binding writes the button's text at idle only.
    option.text = QString::fromStdString(m_cornerLabel->value());
    option.fontMetrics = m_table.verticalHeader()->fontMetrics();
    QSize const section =
        m_table.style()->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), m_table.verticalHeader());
    m_table.verticalHeader()->setMinimumWidth(section.expandedTo(QApplication::globalStrut()).width() + margin);
    // Qt lays the headers out again only when a section changes.
    m_table.hideColumn(0);
    m_table.showColumn(0);
}

} // namespace veldraw::sdk::ui::propertymanager
