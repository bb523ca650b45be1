#pragma once

#include "tests/dialogs/models/SampleSession.h"
#include "tests/dialogs/support/DialogTraits.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <QDialog>
#include <QWidget>

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

class QAbstractItemModel;
class QAbstractItemView;
class QComboBox;
class QDialogButtonBox;
class QListView;
class QPushButton;

namespace veldraw::tests {

/// A dialog over a data set with the zones Wing, Body and Tail and the variables X, Y, P and T; and the hands of its user.
class DialogFixture : public testing::Test
{
protected:
    explicit DialogFixture(DialogTraits dialogTraits);
    ~DialogFixture() override;

    dialogs::common::QtDialogAbstract& dialog() { return traits.instance(*mainWindow); }

    /// The dialog on the screen, in front, with nothing left to do.
    dialogs::common::QtDialogAbstract& launched();

    /// The list, table or combo box that the dialog's things are chosen in.
    QWidget& chooser() { return child<QWidget>(traits.list); }
    /// The same where it is a list or table.
    QAbstractItemView& view() { return child<QAbstractItemView>(traits.list); }
    QListView& list();

    /// A widget by its object name. @throws std::logic_error when there is none of this class
    template <typename Widget>
    Widget& child(std::string const& name)
    {
        auto* const widget = dialog().findChild<Widget*>(QString::fromStdString(name));
        if (!widget)
            throw std::logic_error("there is no widget " + name);
        return *widget;
    }
    /// What a combo box or list got from its binding and loses with it.
    QAbstractItemModel& boundModel(std::string const& objectName);
    /// Of the first of those bindings.
    QAbstractItemModel& firstBoundModel() { return boundModel(boundInOrder().front()); }
    std::vector<std::string> boundInOrder() const;
    QDialogButtonBox& buttonBox();
    bool hasAction() const { return !traits.action.empty(); }
    QPushButton& actionButton();

    /// Clicks a row of the list or table, or goes to it in the combo box.
    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void clickRowOf(QAbstractItemView& view, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clickRowOf(std::string const& list, int row);
    /// Goes to a row of a combo box by Home and the arrow.
    void choose(std::string const& comboBox, int row);
    /// Clicks a check box or radio button on its mark, where a person clicks.
    void clickMark(std::string const& button);
    /// Types over what a field shows and leaves it by Tab.
    void enter(std::string const& field, std::string const& text);
    /// Selects what a button needs that is disabled otherwise.
    void selectForAction();
    void clickAction();
    void clickClose();

    /// Texts of all rows, selected ones with a star.
    std::vector<std::string> rows();
    static std::vector<std::string> rowsOf(QAbstractItemView const& view);
    std::vector<std::string> rowsOf(std::string const& list);
    /// All texts that a combo box offers.
    std::vector<std::string> choicesOf(std::string const& comboBox);
    std::string chosen(std::string const& comboBox);
    /// The text of a field.
    std::string shown(std::string const& field);
    bool isChecked(std::string const& button);
    bool isEnabled(std::string const& name);
    /// Whether the action button is enabled.
    bool canAct();

    /// Has the frame show another plot.
    void showAs(PlotType_e plotType);
    /// Gives a zone values of a variable at its points, both from 1, behind the kernel's back.
    void setValues(int zone, int variable, std::vector<double> const& values);
    /// The values of a variable in a zone.
    std::vector<double> values(int zone, int variable) const;

    std::vector<std::string> zoneNames() const;
    std::vector<std::string> variableNames() const;

    /// Lets the values of all fields wait to be loaded.
    void deferVariables();
    /// Puts the points of each zone into one row.
    void makeLines();

    DialogTraits const traits;
    RecordedMessages messages;
    SampleSession sample{{"Wing", "Body", "Tail"}, {"X", "Y", "P", "T"}};
    std::unique_ptr<QWidget> mainWindow;
};

} // namespace veldraw::tests
