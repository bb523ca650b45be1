#include "app/window/ProgressWindow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr int steps = 1000;

} // namespace

ProgressWindow::ProgressWindow(QString const& operation, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , m_bar(new QProgressBar)
    , m_cancel(new QPushButton(QStringLiteral("Cancel")))
{
    setObjectName(QStringLiteral("progressWindow"));
    setWindowTitle(operation);
    // Modal for the application: dialogs are windows beside the main window and must not get input either.
    setWindowModality(Qt::ApplicationModal);
    auto* const label = new QLabel(operation + QStringLiteral(" ..."));
    label->setObjectName(QStringLiteral("progressLabel"));
    label->setTextFormat(Qt::PlainText);
    m_bar->setObjectName(QStringLiteral("progressBar"));
    m_bar->setAccessibleName(operation);
    m_bar->setRange(0, 0);
    m_cancel->setObjectName(QStringLiteral("progressCancel"));
    // A Return that was meant for the dialog below must not cancel.
    m_cancel->setAutoDefault(false);
    connect(m_cancel, &QPushButton::clicked, this, &ProgressWindow::reject);

    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_bar);
    layout->addLayout(buttons);
    setMinimumWidth(380);
}

void ProgressWindow::showFraction(double fraction)
{
    if (!(fraction > 0.0))
        return;
    m_bar->setRange(0, steps);
    m_bar->setValue(static_cast<int>(std::min(fraction, 1.0) * steps));
}

void ProgressWindow::reject()
{
    if (m_isCancelled)
        return;
    m_isCancelled = true;
    m_cancel->setText(QStringLiteral("Cancelling ..."));
    m_cancel->setEnabled(false);
    Q_EMIT cancelled();
}

} // namespace veldraw::app
