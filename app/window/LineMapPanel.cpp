#include "app/window/LineMapPanel.h"

#include "app/window/LineMapTableModel.h"
#include "app/window/LineMapView.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAction>
#include <QColorDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace veldraw::app {

LineMapPanel::LineMapPanel(kernel::Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_model(new LineMapTableModel(session, this))
    , m_view(new LineMapView(*m_model))
    , m_notice(new QLabel(QStringLiteral("Line maps are the curves of line plots of data.")))
    , m_filter(new QLineEdit)
    , m_add(newButton("addLineMap", QStringLiteral("Add"), QStringLiteral("Add a curve"), &LineMapPanel::add))
    , m_duplicate(newButton("duplicateLineMaps", QStringLiteral("Duplicate"),
                            QStringLiteral("Add a copy of each selected curve"), &LineMapPanel::duplicate))
    , m_delete(newButton("deleteLineMaps", QStringLiteral("Delete"), QStringLiteral("Delete the selected curves"),
                         &LineMapPanel::deleteSelected))
    , m_all(newButton("showAllLineMaps", QStringLiteral("All"), QStringLiteral("Show all curves in the list"),
                      &LineMapPanel::showAll))
    , m_invert(newButton("invertLineMaps", QStringLiteral("Invert"),
                         QStringLiteral("Show the curves in the list that are not shown, and hide the others"),
                         &LineMapPanel::invert))
    , m_follower(session, [this] { refresh(); })
{
    m_notice->setEnabled(false);
    m_notice->setWordWrap(true);
    m_filter->setObjectName(QStringLiteral("lineMapFilter"));
    m_filter->setAccessibleName(QStringLiteral("Filter of the line maps"));
    m_filter->setPlaceholderText(QStringLiteral("Filter"));
    m_filter->setToolTip(QStringLiteral("List the curves alone that have this text in a column"));
    m_filter->setClearButtonEnabled(true);
    m_filter->setMaximumWidth(240);
    makeLayout();
    auto* const byKey = new QAction(m_view);
    byKey->setShortcut(QKeySequence::Delete);
    byKey->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(byKey);
    connect(byKey, &QAction::triggered, this, &LineMapPanel::deleteSelected);
    connect(m_filter, &QLineEdit::textChanged, this, &LineMapPanel::filter);
    connect(m_model, &LineMapTableModel::editRefused, this, &LineMapPanel::editRefused);
    connect(m_view, &LineMapView::otherColourWanted, this, &LineMapPanel::chooseColour, Qt::QueuedConnection);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &LineMapPanel::takeSelection);
    refresh();
}

QToolButton* LineMapPanel::newButton(char const* name, QString const& text, QString const& tip,
                                     void (LineMapPanel::*act)())
{
    auto* const button = new QToolButton;
    button->setText(text);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(tip);
    connect(button, &QToolButton::clicked, this, [this, act] {
        if (sdk::AppLock::depth() == 0)
            (this->*act)();
    });
    return button;
}

void LineMapPanel::makeLayout()
{
    auto* const buttons = new QHBoxLayout;
    for (QToolButton* const button : {m_add, m_duplicate, m_delete})
        buttons->addWidget(button);
    buttons->addSpacing(12);
    buttons->addWidget(new QLabel(QStringLiteral("Show:")));
    buttons->addWidget(m_all);
    buttons->addWidget(m_invert);
    buttons->addSpacing(12);
    buttons->addWidget(m_filter, 1);
    buttons->addStretch();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_notice);
    layout->addLayout(buttons);
    layout->addWidget(m_view, 1);
}

void LineMapPanel::takeFocus()
{
    QWidget* const target = m_model->rowCount() > 0 ? static_cast<QWidget*>(m_view) : m_add;
    target->setFocus(Qt::ShortcutFocusReason);
    if (m_model->rowCount() > 0 && !m_view->currentIndex().isValid())
        m_view->setCurrentIndex(m_model->index(0, LineMapTableModel::NameColumn));
}

QSize LineMapPanel::minimumSizeHint() const
{
    constexpr int least = 120;
    return {least, QWidget::minimumSizeHint().height()};
}

bool LineMapPanel::perform(kernel::Operation&& operation)
{
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    bool const isDone = m_session.perform(operation);
    if (!isDone)
        Q_EMIT editRefused();
    refresh();
    return isDone;
}

void LineMapPanel::add()
{
    auto const frame = LineMapTableModel::linePlot(m_session);
    if (!frame || !perform(kernel::CreateLineMap(frame->id)))
        return;
    m_filter->clear(); // the new one is to be seen
    select({frame->lineMaps.back().id});
}

void LineMapPanel::duplicate()
{
    auto const frame = LineMapTableModel::linePlot(m_session);
    kernel::NumberSet const numbers = selectedNumbers();
    if (!frame || numbers.empty() || !perform(kernel::DuplicateLineMaps(frame->id, numbers)))
        return;
    Maps copies;
    std::size_t before = 0;
    for (int const number : numbers)
        copies.insert(frame->lineMaps[static_cast<std::size_t>(number) + before++].id);
    select(copies);
}

void LineMapPanel::deleteSelected()
{
    auto const frame = LineMapTableModel::linePlot(m_session);
    kernel::NumberSet const numbers = selectedNumbers();
    if (frame && !numbers.empty() && sdk::AppLock::depth() == 0)
        perform(kernel::DeleteLineMaps(frame->id, numbers));
}

void LineMapPanel::showAll()
{
    auto const frame = LineMapTableModel::linePlot(m_session);
    kernel::LineMapSettings shown;
    shown.active = true;
    kernel::NumberSet const hidden = listedNumbers(false);
    if (frame && !hidden.empty())
        perform(kernel::SetLineMaps(frame->id, hidden, shown));
}

// As one step.
void LineMapPanel::invert()
{
    auto const frame = LineMapTableModel::linePlot(m_session);
    if (!frame)
        return;
    kernel::NumberSet const shown = listedNumbers(true);
    kernel::NumberSet const hidden = listedNumbers(false);
    m_session.history().beginGroup("Line Map");
    kernel::LineMapSettings settings;
    settings.active = true;
    bool const isDone = hidden.empty() || perform(kernel::SetLineMaps(frame->id, hidden, settings));
    settings.active = false;
    if (isDone && !shown.empty())
        perform(kernel::SetLineMaps(frame->id, shown, settings));
    m_session.history().endGroup();
}

void LineMapPanel::chooseColour(QModelIndex const& index)
{
    QPersistentModelIndex const cell(index);
    QColorDialog dialog(m_model->data(index, Qt::DecorationRole).value<QColor>(), this);
    dialog.setObjectName(QStringLiteral("curveColourDialog"));
    dialog.setWindowTitle(QStringLiteral("Colour of the Curve"));
    if (dialog.exec() == QDialog::Accepted && cell.isValid())
        m_model->setData(cell, static_cast<int>(dialog.selectedColor().rgb() & 0xFFFFFFU));
}

kernel::NumberSet LineMapPanel::selectedNumbers() const
{
    kernel::NumberSet numbers;
    for (QModelIndex const& index : m_view->selectionModel()->selectedRows())
        numbers.insert(index.row() + 1);
    return numbers;
}

kernel::NumberSet LineMapPanel::listedNumbers(bool areShown) const
{
    kernel::NumberSet numbers;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        bool const isShown = m_model->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
        if (!m_view->isRowHidden(row) && isShown == areShown)
            numbers.insert(row + 1);
    }
    return numbers;
}

void LineMapPanel::select(Maps const& maps)
{
    QItemSelection selection;
    int last = -1;
    for (kernel::UniqueId const map : maps) {
        int const row = m_model->rowOf(map);
        QModelIndex const first = m_model->index(row, 0);
        selection.select(first, first);
        last = std::max(last, row);
    }
    QModelIndex const current = m_model->index(last, LineMapTableModel::NameColumn);
    m_view->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    m_view->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_view->scrollTo(current);
}

void LineMapPanel::takeSelection()
{
    Maps together;
    for (QModelIndex const& index : m_view->selectionModel()->selectedRows())
        together.insert(m_model->idAt(index.row()));
    bool const hasSome = !together.empty();
    m_model->setTogether(std::move(together));
    m_duplicate->setEnabled(hasSome);
    m_delete->setEnabled(hasSome);
}

// What is not listed is not selected either, so that nothing is altered unseen.
void LineMapPanel::filter()
{
    QString const wanted = m_filter->text().trimmed();
    for (int row = 0; row < m_model->rowCount(); ++row) {
        bool isListed = wanted.isEmpty();
        for (int column = LineMapTableModel::NameColumn; column <= LineMapTableModel::LineColumn && !isListed; ++column)
            isListed = m_model->knownText(row, column).contains(wanted, Qt::CaseInsensitive);
        m_view->setRowHidden(row, !isListed);
        if (!isListed)
            m_view->selectionModel()->select(m_model->index(row, 0),
                                             QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    }
}

void LineMapPanel::refresh()
{
    bool const isPossible = LineMapTableModel::linePlot(m_session) != nullptr;
    m_model->refresh();
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_view), static_cast<QWidget*>(m_filter), static_cast<QWidget*>(m_add),
          static_cast<QWidget*>(m_all), static_cast<QWidget*>(m_invert)})
        widget->setEnabled(isPossible);
    m_notice->setVisible(!isPossible);
    m_view->widenColumns();
    filter();
    takeSelection();
}

} // namespace veldraw::app
