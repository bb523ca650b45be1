#pragma once

#include "dialogs/datasetinfo/DataSetInfoDialog.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/DialogFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextEdit>

#include <string>
#include <vector>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;

inline DialogTraits dataSetInfo()
{
    auto traits = DialogTraits::of<dialogs::data::DataSetInfoDialog>();
    traits.list = "selectedZonesList";
    traits.buttonBox = "dataSetInfoButtonBox";
    traits.helpTopic = "data_set_info_zone_variable_info.html";
    traits.plotType = PlotType_Cartesian2D;
    traits.isChoiceOfLibrary = true;
    traits.boundInOrder = {"selectedZonesList", "selectedVarsList", "auxDataLocationComboBox",
                           "zoneAuxDataSelectedZoneComboBox"};
    return traits;
}

/// The window over the zones Wing, Body and Tail and the variables X, Y, P and T. The page and the kind of owner that it remembers
/// are those of a fresh program again afterwards.
class DataSetInfoFixture : public DialogFixture
{
protected:
    static constexpr int zoneVarPage = 0;
    static constexpr int dataSetPage = 1;
    static constexpr int auxDataPage = 2;
    static constexpr char kinds[] = "auxDataLocationComboBox";
    static constexpr char owners[] = "zoneAuxDataSelectedZoneComboBox";
    static constexpr char titleField[] = "dataSetTitleLineEdit";

    DataSetInfoFixture()
        : DialogFixture(dataSetInfo())
    {
    }
    // By hand, since the window may be grey at the end of a test.
    ~DataSetInfoFixture() override
    {
        dialog().launch();
        child<QComboBox>(kinds).setCurrentIndex(0);
        tabs().setCurrentIndex(zoneVarPage);
        dialog().drop();
    }

    QTabWidget& tabs() { return child<QTabWidget>("dataSetInfoTabWidget"); }
    QTableView& table() { return child<QTableView>("auxDataTableView"); }

    /// Clicks a tab.
    void goTo(int page)
    {
        QTabBar& bar = *tabs().tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.tabRect(page).center());
        IdleDispatcher::flush();
    }
    void launchedAt(int page)
    {
        launched();
        goTo(page);
    }
    /// The dialog is destroyed as the main window is, and made again.
    void startAnew()
    {
        mainWindow = std::make_unique<QWidget>();
        mainWindow->show();
        launched();
    }

    std::string labelled(std::string const& label)
    {
        IdleDispatcher::flush();
        return child<QLabel>(label).text().toStdString();
    }
    std::string files()
    {
        IdleDispatcher::flush();
        return child<QTextEdit>("dataFilesTextEdit").toPlainText().toStdString();
    }
    /// "name = value" of each row of auxiliary data.
    std::vector<std::string> auxData()
    {
        IdleDispatcher::flush();
        QAbstractItemModel const& model = *table().model();
        std::vector<std::string> rows;
        for (int row = 0; row < model.rowCount(); ++row)
            rows.push_back(
                (model.index(row, 0).data().toString() + QStringLiteral(" = ") + model.index(row, 1).data().toString())
                    .toStdString());
        return rows;
    }
};

} // namespace veldraw::tests
