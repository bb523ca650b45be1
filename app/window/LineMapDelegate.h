#pragma once

#include <QStyledItemDelegate>

namespace veldraw::app {

class LineMapTableModel;

/// Makes the fields in which cells of line maps are edited: a list to choose from that opens at once, a number or a text.
class LineMapDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit LineMapDelegate(LineMapTableModel const& model, QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    void setEditorData(QWidget* editor, QModelIndex const& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, QModelIndex const& index) const override;

Q_SIGNALS:
    /// The user wants to choose any colour for a cell.
    void otherColourWanted(QModelIndex const& index) const;

private:
    LineMapTableModel const& m_model;
};

} // namespace veldraw::app
