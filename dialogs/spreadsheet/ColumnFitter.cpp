#include "dialogs/spreadsheet/ColumnFitter.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// What needs more is cut, and can be widened by hand: a long name must not push all other columns out of view.
constexpr int mostDefaultWidths = 4;

// Beyond these a change of the table would take too long.
constexpr int mostColumns = 10000;
constexpr int mostNames = 300;

// Between a cell and the next.
constexpr int gridLine = 1;

} // namespace

ColumnFitter::ColumnFitter(QTableView& view, TableInView const& tableInView)
    : QObject(&view)
    , m_view(view)
    , m_tableInView(tableInView)
    , m_performer([this] { fit(); })
{
    view.installEventFilter(this);
    connect(view.horizontalHeader(), &QHeaderView::sectionResized, this, &ColumnFitter::onSectionResized);
    listenToModel();
}

ColumnFitter::~ColumnFitter() = default;

void ColumnFitter::listenToModel()
{
    QAbstractItemModel const* const model = m_view.model();
    connect(model, &QAbstractItemModel::modelReset, this, [this] {
        m_isSizeNew = true;
        measureLater();
    });
    connect(model, &QAbstractItemModel::dataChanged, this, &ColumnFitter::onDataChanged);
}

// Values that others alter are not measured: what an edit costs must not grow with the cells in view.
void ColumnFitter::onDataChanged(QModelIndex const& first, QModelIndex const& last)
{
    if (m_measured.lock() != m_tableInView()) {
        measureLater();
    } else if (first == last) {
        m_widthOfCells = std::max(m_widthOfCells, m_view.sizeHintForIndex(first).width() + gridLine);
        fitLater();
    }
}

bool ColumnFitter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measureLater();
    return QObject::eventFilter(watched, event);
}

// Hidden columns have no width.
void ColumnFitter::onSectionResized(int column, int oldWidth, int newWidth)
{
    if (!m_isFitting && oldWidth > 0 && newWidth > 0)
        m_resizedByHand.insert(column);
}

void ColumnFitter::measureLater()
{
    m_isMeasuringDue = true;
    fitLater();
}

void ColumnFitter::fitLater()
{
    m_performer.enableNotification();
}

void ColumnFitter::fit()
{
    // What is not shown yet has no rows in view; it comes back here when it is shown.
    if (!m_view.isVisible())
        return;
    int const columns = m_view.model()->columnCount();
    if (columns > mostColumns)
        return;
    if (std::exchange(m_isMeasuringDue, false))
        measureCells();
    QScopedValueRollback<bool> const fitting(m_isFitting, true);
    bool const keepsCurrentInView = isCurrentInView();
    QHeaderView const& header = *m_view.horizontalHeader();
    int const most = mostDefaultWidths * header.defaultSectionSize();
    for (int column = 0; column < columns; ++column) {
        int const widthOfName = column < mostNames ? header.sectionSizeHint(column) : 0;
        int const widthBefore = m_isSizeNew ? header.defaultSectionSize() : m_view.columnWidth(column);
        if (m_resizedByHand.count(column) == 0)
            m_view.setColumnWidth(column, std::max(widthBefore, std::min(std::max(m_widthOfCells, widthOfName), most)));
    }
    m_isSizeNew = false;
    if (keepsCurrentInView)
        m_view.scrollTo(m_view.currentIndex());
}

void ColumnFitter::measureCells()
{
    QAbstractItemModel const& items = *m_view.model();
    QRect const cells = m_view.viewport()->rect();
    auto const last = [](int inView, int count) { return inView < 0 ? count - 1 : inView; };
    int const lastRow = last(m_view.rowAt(cells.bottom()), items.rowCount());
    int const lastColumn = last(m_view.columnAt(cells.right()), items.columnCount());
    m_measured = m_tableInView();
    m_widthOfCells = 0;
    for (int column = std::max(m_view.columnAt(0), 0); column <= lastColumn; ++column) {
        for (int row = std::max(m_view.rowAt(0), 0); row <= lastRow; ++row) {
            int const width = m_view.sizeHintForIndex(items.index(row, column)).width();
            m_widthOfCells = std::max(m_widthOfCells, width + gridLine);
        }
    }
}

bool ColumnFitter::isCurrentInView() const
{
    QRect const current = m_view.visualRect(m_view.currentIndex());
    return current.isValid() && m_view.viewport()->rect().intersects(current);
}

} // namespace veldraw::sdk::ui::propertymanager
