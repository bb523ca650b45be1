#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"
#include "platform/vdsdkcommon/StringFormatter.h"

#include <QStyledItemDelegate>

#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::propertymanager {
class DataSpreadsheetPropertiesManager;
}

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

class ZoneVarTableModelAbstract;

/// Shows the numbers of a table of field values in the chosen format and lets the user edit them, within the limits of
/// the type in which they are stored. An edit belongs to the value that was in the cell when the editor was opened,
/// whatever the cell comes to stand for meanwhile; see `EditedCell`.
class ZoneVarTableItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// The manager must outlive the delegate.
    ZoneVarTableItemDelegate(propertymanager::DataSpreadsheetPropertiesManager const& manager, QObject* parent);
    ~ZoneVarTableItemDelegate() override;

    QWidget* createEditor(QWidget* parent, QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    /// What is being typed stays, whatever becomes of the cell meanwhile.
    void setEditorData(QWidget* editor, QModelIndex const& index) const override;
    /// A text that is not acceptable is dropped: the cell keeps its value.
    void setModelData(QWidget* editor, QAbstractItemModel* model, QModelIndex const& index) const override;
    /// In the chosen format and always with a decimal point; "Not Loaded" as it is, anything else that is no number as
    /// nothing.
    QString displayText(QVariant const& value, QLocale const& locale) const override;
    /// Numbers stand to the right, digits under digits.
    void initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const override;
    /// Tells of a cell without values why it can't be edited.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, QStyleOptionViewItem const& option,
                   QModelIndex const& index) override;
    /// Return and Enter end the edit and stay with the editor. An edit that is open when the window goes off the screen is
    /// dropped.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString shownText(QVariant const& value) const;
    boost::shared_ptr<ZoneVarTableModelAbstract> shownTable() const;

    propertymanager::DataSpreadsheetPropertiesManager const& m_manager;
    mutable StringFormatter m_formatter; // set up anew for each text, inside what Qt wants const
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
