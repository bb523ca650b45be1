#include "app/window/LineMapDelegate.h"

#include "app/window/LineMapTableModel.h"
#include "kernel/frames/CurveLook.h"

#include <QDoubleSpinBox>
#include <QTimer>

namespace veldraw::app {

namespace {

QDoubleSpinBox* newWidthBox(QWidget* parent)
{
    auto* const box = new QDoubleSpinBox(parent);
    box->setObjectName(QStringLiteral("lineMapWidth"));
    box->setAccessibleName(QStringLiteral("Width of the line"));
    box->setRange(kernel::CurveLook::leastWidth, kernel::CurveLook::mostWidth);
    box->setSingleStep(0.5);
    box->setFrame(false);
    return box;
}

} // namespace

LineMapDelegate::LineMapDelegate(LineMapTableModel const& model, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
{
}

QWidget* LineMapDelegate::createEditor(QWidget* parent, QStyleOptionViewItem const& option,
                                       QModelIndex const& index) const
{
    if (index.column() == LineMapTableModel::NameColumn)
        return QStyledItemDelegate::createEditor(parent, option, index);
    if (index.column() == LineMapTableModel::WidthColumn)
        return newWidthBox(parent);
    QString const header = m_model.headerData(index.column(), Qt::Horizontal).toString();
    auto* const chooser = new NumberChooser(QStringLiteral("lineMapChooser"), header, parent);
    connect(chooser, &NumberChooser::chosen, this, [this, chooser] {
        auto* const self = const_cast<LineMapDelegate*>(this); // signals of the base class are not const
        Q_EMIT self->commitData(chooser);
        Q_EMIT self->closeEditor(chooser);
    });
    QTimer::singleShot(0, chooser, [chooser] { chooser->showPopup(); });
    return chooser;
}

void LineMapDelegate::setEditorData(QWidget* editor, QModelIndex const& index) const
{
    auto* const chooser = qobject_cast<NumberChooser*>(editor);
    if (!chooser)
        return QStyledItemDelegate::setEditorData(editor, index);
    auto const choices = m_model.choices(index);
    chooser->show(choices, index.data(Qt::EditRole).toInt());
    if (index.column() != LineMapTableModel::ColourColumn)
        return;
    for (int row = 0; row < chooser->count(); ++row) {
        int const colour = choices[static_cast<std::size_t>(row)].first;
        if (colour >= 0)
            chooser->setItemData(row, QColor::fromRgb(static_cast<QRgb>(colour)), Qt::DecorationRole);
    }
}

void LineMapDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, QModelIndex const& index) const
{
    auto const* const chooser = qobject_cast<NumberChooser*>(editor);
    if (!chooser)
        return QStyledItemDelegate::setModelData(editor, model, index);
    if (chooser->currentIndex() < 0 || chooser->number() == index.data(Qt::EditRole).toInt())
        return;
    if (chooser->number() == LineMapTableModel::otherColour)
        Q_EMIT otherColourWanted(index);
    else
        model->setData(index, chooser->number());
}

} // namespace veldraw::app
