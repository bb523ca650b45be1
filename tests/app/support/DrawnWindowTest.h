#pragma once

#include "app/import/reading/Deferral.h"
#include "app/plot/FieldView.h"
#include "app/plot/PageView.h"
#include "tests/app/support/WindowTest.h"

#include <QStringList>

#include <atomic>

class QTableView;

namespace veldraw::tests {

/// The whole window, plots included, over real files.
class DrawnWindowTest : public WindowTest
{
protected:
    struct Limits
    {
        double min;
        double max;
    };

    app::CentralView makeView() override { return app::CentralView::ofPage(session); }
    app::DocumentController::FileReader makeReader() override;

    /// A file of the sample generator in the test's folder, opened in the window.
    /// @return its path
    QString openSample(char const* name, void (*write)(std::string const& path));

    kernel::DataSet& dataSet() { return *session.activeDataSet(); }
    app::PageView& page() { return dynamic_cast<app::PageView&>(*middle); }

    /// The field plot in the active frame.
    app::FieldView& view() { return dynamic_cast<app::FieldView&>(*page().frameView(session.activeFrame()->id)); }
    QString message() { return page().message(session.activeFrame()->id); }
    Limits legendLimits();

    /// Texts of a column of one of the dock's tables.
    QStringList column(char const* table, int number);

    /// The range of a variable as the dock shows it once there is one.
    QString shownRange(int variable);

    /// Waits until the dock shows a range of a variable.
    void expectRange(int variable, QString const& range);

    /// Runs an action as its menu does.
    void use(char const* command);

    /// Opens a dialog by its action of the Data menu. @return the window that came
    QDialog& openDialog(char const* command, char const* objectName);
    QTableView& openSpreadsheet();

    std::atomic<app::Deferral> deferral{app::Deferral::Auto}; ///< of the files that are opened
};

} // namespace veldraw::tests
