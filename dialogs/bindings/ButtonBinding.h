#pragma once

#include "dialogs/bindings/BindingInterface.h"
#include "dialogs/property/DialogsApi.h"

#include <QObject>

#include <boost/function.hpp>

class QAbstractButton;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Runs a function when a button is clicked, by mouse, key or mnemonic.
///
/// Text that was typed into a field of the same window counts: a mnemonic does not move the focus by itself, so the
/// binding moves it to the button first, which commits the text. If the commit was refused, so that the focus is back
/// in the field, the function does not run; a press of the mouse doesn't even push the button. What the function throws
/// goes to the event loop's handler.
class VDSDKDIALOGS_DATA_QT_API ButtonBinding : public QObject, public BindingInterface
{
public:
    ButtonBinding(QAbstractButton& button, boost::function<void()> const& function);
    ~ButtonBinding() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void onClicked();

    QAbstractButton& m_button;
    boost::function<void()> m_function;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
