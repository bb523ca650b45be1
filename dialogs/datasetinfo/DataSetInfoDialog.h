#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Shows what is known of the data set, of its zones and variables, and the auxiliary data of all that can have some. Names and the
/// title can be edited. It stays open beside the plot, and follows whatever changes the data; it loads nothing by itself.
class VDSDKDIALOGS_DATA_QT_API DataSetInfoDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
    Q_OBJECT

public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    static DataSetInfoDialog& getInstance(QWidget& parent);

    /// True while there is a data set that is shown in a field plot or a line plot. Always the same rule, whether or not there is a
    /// dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~DataSetInfoDialog() override;

private:
    struct Impl;

    explicit DataSetInfoDialog(QWidget& parent);

    static DataSetInfoDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
