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

/// What all dialogs have in common. A dialog builds its form on it and overrides nothing but the destructor.
///
/// - Modeless or modal as its form says; `launch()` never blocks. Closing only hides: the object, its settings and its
///   bindings stay, until the parent widget dies. Idle work that is pending then goes along.
/// - Close and Escape hide it, and drop what is being typed. No button is a default or auto-default one: Return in a field or a list must not run an
///   action that may delete data.
/// - With a rule, its content and its action buttons can be used only while the rule is true; Close and Help always.
/// - Inputs that Qt does not name by their label, such as lists, get its text as their accessible name.
/// - It opens at the size of its form; one without a size at the size that its content prefers, as far as the screen has
///   room.
/// - Registered state is restored when the dialog appears and saved when it goes, by whatever way.
class VDSDKDIALOGS_DATA_QT_API QtDialogAbstract : public QDialog, public virtual DialogInterface
{
    Q_OBJECT

public:
    /// @param parent owns the dialog
    /// @param relevance rule for the whole dialog; empty for none
    QtDialogAbstract(QWidget& parent, boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance);
    ~QtDialogAbstract() override;

    /// Asks no rule: the application asked before. A visible dialog comes to the front and is otherwise left alone.
    void launch() override;
    void drop() override;
    /// Runs what is due at idle and asks the dialog's rule again.
    void updateContent() override;

    void done(int result) override;
    /// At least the size that the form was given.
    QSize sizeHint() const override;

    /// Takes over the help action: F1 and a Help button trigger it. To be called once, after the form stands.
    void setHelpAction(QAction* action);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    /// Registers state to be restored at each opening and saved at each closing.
    void addPersistentState(boost::shared_ptr<veldraw::common::SerializerInterface> const& state);

private:
    void wireOnce();
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
