#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <QPoint>

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::sdk::ui::dialogs {

/// Shows the values of one zone as a table in which they can be edited. It stays open beside the plot, and follows whatever
/// else changes the data.
class VDSDKDIALOGS_DATA_QT_API DataSpreadsheetDialog : public veldraw::dialogs::common::QtDialogAbstract,
                                                       public virtual DialogInterface
{
    Q_OBJECT

public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    /// @throws IOException, InterruptedException when the dimensions of the zone it shows cannot be had
    static DataSpreadsheetDialog& getInstance(QWidget& parent);

    /// True while there is a data set. Always the same rule, whether or not there is a dialog.
    static boost::shared_ptr<propertymanager::RelevanceInterface const> relevance();

    ~DataSpreadsheetDialog() override;

protected:
    explicit DataSpreadsheetDialog(QWidget& parent);

private Q_SLOTS:
    /// Runs the table's menu at a place of its viewport.
    void createContextMenu(QPoint const& pos);

private:
    struct Impl;

    static DataSpreadsheetDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::sdk::ui::dialogs
