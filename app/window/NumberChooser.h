#pragma once

#include <QComboBox>

#include <utility>
#include <vector>

namespace veldraw::app {

/// A combo box for the number of a zone or a variable. Only the user's own choice is told; the wheel does nothing unless
/// the box has the focus. A name that is too long for the box loses its middle; the list that opens is wide enough for it.
class NumberChooser : public QComboBox
{
    Q_OBJECT

public:
    using Choices = std::vector<std::pair<int, QString>>; ///< number and text

    explicit NumberChooser(QString const& name, QString const& accessibleText, QWidget* parent = nullptr);

    /// Shows other choices and another number; without a signal, and without a flicker when nothing has changed.
    void show(Choices const& choices, int number);

    /// Number of the current choice, 0 when there is none.
    int number() const { return currentData().toInt(); }

    /// The current choice as it is drawn.
    QString shownText() const;

    void showPopup() override;

Q_SIGNALS:
    void chosen(int number);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Choices m_choices;
};

} // namespace veldraw::app
