#pragma once

#include "app/files/PictureOptions.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QDoubleSpinBox;
class QLabel;
class QSpinBox;

namespace veldraw::app {

/// Asks what pictures of the page are to be like, and says how many pixels they will have.
class PictureOptionsDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param options shown at first @param onScreen size of the page on the screen, logical pixels
    /// @param screenScale device pixels a logical one there
    PictureOptionsDialog(PictureOptions const& options, QSize const& onScreen, double screenScale,
                         QWidget* parent = nullptr);

    /// What is chosen. What equals the screen's own is left to the screen.
    PictureOptions options() const;

private:
    QSpinBox* addSide(char const* name, QString const& text, int value);
    void fill(PictureOptions const& options);
    void showOutcome();

    QSize m_onScreen;
    double m_screenScale;
    QComboBox* m_frames;
    QCheckBox* m_asOnScreen;
    QSpinBox* m_width;
    QSpinBox* m_height;
    QDoubleSpinBox* m_scale;
    QCheckBox* m_transparent;
    QLabel* m_outcome;
    QDialogButtonBox* m_buttons;
};

} // namespace veldraw::app
