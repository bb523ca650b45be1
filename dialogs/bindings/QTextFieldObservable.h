#pragma once

#include "dialogs/property/DialogsApi.h"

#include <QObject>

#include <functional>

class QLineEdit;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Tells when the user has finished with a line edit.
///
/// - Return or Enter always is the end. The key goes no further, so that it never presses a button of the dialog.
/// - Losing the focus is the end if the user typed since the text was last set; but not to another window, a popup or the
///   menu bar, nor if the field is hidden, disabled, read-only or being deleted.
///
/// A call that comes while the last one still runs is left out: a message box that a refused text opens takes the focus
/// from the field as well. What the function throws goes to whoever sent the event.
class VDSDKDIALOGS_DATA_QT_API QTextFieldObservable : public QObject
{
public:
    /// @param finished takes the text; answers whether it was taken. It may end this object and the line edit. Whoever
    /// refuses a text puts the focus back itself.
    QTextFieldObservable(QLineEdit& lineEdit, std::function<bool()> const& finished);
    ~QTextFieldObservable() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tell();

    std::function<bool()> const m_finished;
    bool m_isTelling = false;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
