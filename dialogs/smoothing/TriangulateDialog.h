#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// Lets the user make a zone of triangles between the points of zones, in the plane of a 2D plot. It stays open afterwards.
///
/// Its controls do not follow its rule, so that a triangulation that was set up survives a look at the data in another plot.
class VDSDKDIALOGS_DATA_QT_API TriangulateDialog : public common::QtDialogAbstract, public virtual DialogInterface
{
public:
    /// The one dialog, made on first use. It belongs to the first parent; later ones are ignored.
    static TriangulateDialog& getInstance(QWidget& parent);

    /// True in a 2D plot. Always the same rule, whether or not there is a dialog.
    static boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance();

    ~TriangulateDialog() override;

private:
    struct Impl;

    explicit TriangulateDialog(QWidget& parent);

    static TriangulateDialog* s_instance;
    std::unique_ptr<Impl> m_impl;
};

} // namespace veldraw::dialogs::data
