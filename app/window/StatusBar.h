#pragma once

#include <QStatusBar>

namespace veldraw::app {

/// A status bar whose messages end in "…" where the widgets at its right end begin; the tool tip has the whole.
class StatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent = nullptr);

    /// Where a message can be seen.
    QRect messageArea() const;

    /// The message as it is drawn.
    QString shownMessage() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace veldraw::app
