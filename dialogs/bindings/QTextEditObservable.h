#pragma once

#include "dialogs/property/DialogsApi.h"

#include <QObject>

#include <functional>

class QTextEdit;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Tells when the user has finished with a multi-line text field: it loses the focus after its text was edited. Return
/// begins a line as ever. Losing the focus to another window, a popup or the menu bar is not the end, nor is a call that
/// comes while the last one still runs.
class VDSDKDIALOGS_DATA_QT_API QTextEditObservable : public QObject
{
public:
    QTextEditObservable(QTextEdit& textEdit, std::function<void()> const& finished);
    ~QTextEditObservable() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isFinished(QTextEdit const& textEdit, QEvent* event) const;

    std::function<void()> const m_finished;
    bool m_isTelling = false;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
