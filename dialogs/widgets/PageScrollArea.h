#pragma once

#include <QScrollArea>

namespace veldraw::dialogs::common {

/// Lets a page of a form be lower than its widgets need: where the screen has no room for them, with a large font for instance, the page
/// scrolls up and down, and follows the focus. With room enough it is not seen.
class PageScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit PageScrollArea(QWidget* parent = nullptr);
    ~PageScrollArea() override;

    /// All of the page.
    QSize sizeHint() const override;
    /// All of its width, and a scroll bar's.
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showFocus(QWidget* focus);
};

} // namespace veldraw::dialogs::common
