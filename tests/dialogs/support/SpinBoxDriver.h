#pragma once

#include <QAbstractSpinBox>
#include <QPoint>
#include <QString>
#include <QStyle>

#include <string>

namespace veldraw::tests {

/// A user's hands on a spin box: keys, typed text, clicks on the arrows, the wheel.
class SpinBoxDriver
{
public:
    explicit SpinBoxDriver(QAbstractSpinBox& box);

    /// Replaces the text key by key and doesn't finish.
    void type(char const* text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clickUp();
    void clickDown();
    /// Presses the upper arrow and holds it down until release().
    void holdUp();
    void releaseUp();
    /// Notches over the box; positive ones turn up.
    void turnWheel(int notches);
    std::string text() const;

private:
    QPoint arrow(QStyle::SubControl control) const;

    QAbstractSpinBox& m_box;
};

} // namespace veldraw::tests
