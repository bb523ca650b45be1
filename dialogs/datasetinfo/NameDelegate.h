#pragma once

#include "dialogs/bindings/RowSizeDelegate.h"
#include "dialogs/datasetinfo/NamedThings.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include <QPointer>

#include <optional>
#include <string>
#include <utility>
#include <vector>

class QAbstractItemModel;
class QLineEdit;
class QListView;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Has zones or variables renamed in the rows of a list. The name belongs to what stood in the row when its editor was opened; text
/// that is unfinished when the list becomes another one is taken, too.
///
/// All rows have the size of the longest one, so that a view opens at once on any number of rows: with its own sizes, 100,000 texts
/// would be shaped each time that the list changes.
///
/// It renames at the next idle moment, out of reach of the view's own work: the list may change by it, and a refusal is told in a
/// message box, which runs an event loop.
class NameDelegate : public RowSizeDelegate
{
public:
    /// Belongs to the view.
    NameDelegate(QListView& view, propertymanager::NamedThings things);
    ~NameDelegate() override;

    /// Takes unfinished text when this model, which the view shows, is reset.
    void follow(QAbstractItemModel const& model);

    QSize sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    QWidget* createEditor(QWidget* parent, QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, QModelIndex const& index) const override;

private:
    int longestRow() const;
    void take(QLineEdit& editor) const;
    void renameAll();

    propertymanager::NamedThings const m_things;
    mutable QPointer<QLineEdit> m_editor;
    mutable std::optional<int> m_longestRow;                        // empty: the list has changed since
    mutable std::vector<std::pair<long long, std::string>> m_typed; // unique identifiers and the names for them
    mutable sdk::ui::common::OnIdleActionPerformerSingleShot m_performer;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
