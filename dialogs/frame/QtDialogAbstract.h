#pragma once

#include "dialogs/frame/DialogInterface.h"
#include "dialogs/frame/SerializerInterface.h"
#include "dialogs/property/RelevanceInterface.h"

#include <QDialog>
#include <QList>
#include <QSize>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

class QAction;
class QDialogButtonBox;

namespace veldraw::sdk::ui::dialogs::propertybindings {
class RelevanceApplier;
}

namespace veldraw::dialogs::common {

/// The base of all dialogs. A derived class sets up its form in the constructor and overrides only the destructor:
///
///     DeleteVariableDialog::DeleteVariableDialog(QWidget& parent)
///         : QtDialogAbstract(parent, relevance())
///         , m_impl(std::make_unique<Impl>(*this)) // form, manager, bindings
///     {
///         setHelpAction(new LaunchHelpAction("delete_variable.html", *this));
///     }
///
/// What every dialog gets by it:
///
/// - **Opening.** The form says whether the dialog is modal; `launch()` returns at once in either case. The dialog opens at
///   the size of its form or, if the form has none, at the size that its content prefers and the screen has room for.
/// - **Closing** hides the dialog and drops unfinished text; Escape does the same. Object, settings and bindings stay until
///   the parent widget is destroyed. Then pending idle work is cancelled.
/// - **Relevance.** While the dialog's rule is false, the content and the action buttons are disabled, Close and Help are not.
/// - **Keys.** No button is a default or auto-default one, so that Return in a field or a list cannot run an action that
///   deletes data.
/// - **Accessible names.** Inputs that Qt does not name after their label, such as lists, get the label's text.
/// - **State** that was added by `addPersistentState` is restored when the dialog appears and saved when it disappears.
class VDSDKDIALOGS_DATA_QT_API QtDialogAbstract : public QDialog, public virtual DialogInterface
{
    Q_OBJECT

public:
    /// @param parent owns the dialog
    /// @param relevance rule for the whole dialog; empty for none
    QtDialogAbstract(QWidget& parent, boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance);
    ~QtDialogAbstract() override;

    /// Opens the dialog without asking the rule, which the application has asked before. A visible dialog only comes to the
    /// front.
    void launch() override;
    void drop() override;
    /// Runs the pending idle work and applies the dialog's rule again.
    void updateContent() override;

    void done(int result) override;
    /// The preferred size, and at least that of the form.
    QSize sizeHint() const override;

    /// Has F1 and the Help button trigger the action, and takes ownership. To be called once, after the form is set up.
    void setHelpAction(QAction* action);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    /// Adds state that is restored at each opening and saved at each closing.
    void addPersistentState(boost::shared_ptr<veldraw::common::SerializerInterface> const& state);

private:
    void wireOnce();
    void settleLayouts();
    void wireCloseButtons();
    void takeDefaultsOffButtons();
    void letButtonsBeNarrow();
    void nameInputsAfterTheirLabels();
    void applyRelevance();
    void focusFirstWidget();
    void rememberFormSize() const;
    void restoreState();
    void saveState();
    std::vector<QObject*> relevanceTargets() const;
    QList<QDialogButtonBox*> buttonBoxes() const;

    boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> m_relevance;
    std::unique_ptr<sdk::ui::dialogs::propertybindings::RelevanceApplier> m_relevanceApplier;
    std::vector<boost::shared_ptr<veldraw::common::SerializerInterface>> m_states;
    mutable QSize m_formSize; // invalid until known
    bool m_isWired = false;
    bool m_wasShown = false;
    bool m_holdsUnsavedState = false; // between an opening and the closing that saves
};

} // namespace veldraw::dialogs::common
