#pragma once

#include "dialogs/variableops/LoadVariablesDialog.h"
#include "kernel/operations/LoadVariables.h"
#include "platform/styleproperties/StyleValue.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/DialogFixture.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QTest>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;

inline DialogTraits loadVariables()
{
    DialogTraits traits;
    traits.instance = [](QWidget& parent) -> dialogs::common::QtDialogAbstract& {
        return dialogs::data::LoadVariablesDialog::getInstance(parent, 1);
    };
    traits.relevance = &dialogs::data::LoadVariablesDialog::relevance;
    traits.list = "LoadVariables_Variables_listView";
    traits.action = "&Load";
    traits.buttonBox = "LoadVariables_buttonBox";
    traits.helpTopic = "load_variable.html";
    traits.actionNeedsSelection = true;
    traits.defersVariables = true;
    traits.boundInOrder = {"LoadVariables_Zones_comboBox", "LoadVariables_Variables_listView"};
    return traits;
}

/// The dialog over three zones with the variables X, Y, P and T, of which none is loaded; it begins with the first zone.
class LoadVariablesFixture : public DialogFixture
{
protected:
    LoadVariablesFixture()
        : DialogFixture(loadVariables())
    {
    }

    QComboBox& zoneBox() { return *dialog().findChild<QComboBox*>(QStringLiteral("LoadVariables_Zones_comboBox")); }

    bool isLoaded(int zone, int variable) const { return sample.dataSet().field(zone, variable)->isLoaded(); }

    /// Loads as something else than the dialog would.
    void loadBehindTheDialog(int zone, kernel::NumberSet const& variables)
    {
        sample.session().perform(kernel::MakeVariablesAvailable(sample.dataSet(), kernel::NumberSet{zone}, variables));
    }

    /// Whether a load goes to all zones that are drawn.
    static void setKeepsDrawnZones(bool keeps)
    {
        toolbox::StyleValue style("FileConfig", "LoadOnDemand", "KeepHighPriorityVarsAvailable");
        EXPECT_TRUE(toolbox::StyleValue::returnCodeOk(style.setValue(keeps ? 1ll : 0ll, -1, -1)));
    }

    std::vector<std::string> zonesOffered()
    {
        IdleDispatcher::flush();
        std::vector<std::string> texts;
        for (int item = 0; item < zoneBox().count(); ++item)
            texts.push_back(zoneBox().itemText(item).toStdString());
        return texts;
    }
};

} // namespace veldraw::tests
