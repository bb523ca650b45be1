#include "app/window/PictureOptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace veldraw::app {

PictureOptionsDialog::PictureOptionsDialog(PictureOptions const& options, QSize const& onScreen, double screenScale,
                                           QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , m_onScreen(onScreen)
    , m_screenScale(screenScale)
    , m_frames(new QComboBox)
    , m_asOnScreen(new QCheckBox(QStringLiteral("As on the &screen")))
    , m_width(
          addSide("pictureWidth", QStringLiteral("Width"), (options.size.isEmpty() ? onScreen : options.size).width()))
    , m_height(addSide("pictureHeight", QStringLiteral("Height"),
                       (options.size.isEmpty() ? onScreen : options.size).height()))
    , m_scale(new QDoubleSpinBox)
    , m_transparent(new QCheckBox(QStringLiteral("&Transparent background")))
    , m_outcome(new QLabel)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setObjectName(QStringLiteral("pictureOptionsDialog"));
    setWindowTitle(QStringLiteral("Picture Options"));
    fill(options);
    auto* const form = new QFormLayout;
    form->addRow(QStringLiteral("&Show:"), m_frames);
    form->addRow(QStringLiteral("Size:"), m_asOnScreen);
    form->addRow(QStringLiteral("&Width:"), m_width);
    form->addRow(QStringLiteral("&Height:"), m_height);
    form->addRow(QStringLiteral("S&cale:"), m_scale);
    form->addRow(m_transparent);
    form->addRow(QStringLiteral("Picture:"), m_outcome);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_asOnScreen, &QCheckBox::toggled, this, [this] { showOutcome(); });
    for (QSpinBox* const side : {m_width, m_height})
        connect(side, QOverload<int>::of(&QSpinBox::valueChanged), this, [this] { showOutcome(); });
    connect(m_scale, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this] { showOutcome(); });
    showOutcome();
}

void PictureOptionsDialog::fill(PictureOptions const& options)
{
    m_frames->setObjectName(QStringLiteral("pictureFrames"));
    m_frames->addItems({QStringLiteral("All frames of the page"), QStringLiteral("The active frame alone")});
    m_frames->setCurrentIndex(options.activeFrameOnly ? 1 : 0);
    m_asOnScreen->setObjectName(QStringLiteral("pictureAsOnScreen"));
    m_asOnScreen->setChecked(options.size.isEmpty());
    m_scale->setObjectName(QStringLiteral("pictureScale"));
    m_scale->setRange(PictureOptions::smallestScale, PictureOptions::largestScale);
    m_scale->setSingleStep(0.5);
    m_scale->setValue(options.scale == 0.0 ? m_screenScale : options.scale);
    m_scale->setToolTip(QStringLiteral(
        "Pixels of the picture for each pixel of the size, along both sides; letters and lines grow too"));
    m_transparent->setObjectName(QStringLiteral("pictureTransparent"));
    m_transparent->setChecked(options.isTransparent);
    m_transparent->setToolTip(QStringLiteral("In .png and .pdf; other pictures are white behind the plots"));
    m_outcome->setObjectName(QStringLiteral("pictureOutcome"));
    m_outcome->setWordWrap(true);
}

QSpinBox* PictureOptionsDialog::addSide(char const* name, QString const& text, int value)
{
    auto* const side = new QSpinBox(this);
    side->setObjectName(QString::fromLatin1(name));
    side->setAccessibleName(text);
    side->setRange(PictureOptions::smallestSide, PictureOptions::longestSide);
    side->setSuffix(QStringLiteral(" pixels"));
    side->setValue(value);
    return side;
}

PictureOptions PictureOptionsDialog::options() const
{
    PictureOptions options;
    if (!m_asOnScreen->isChecked())
        options.size = {m_width->value(), m_height->value()};
    if (!qFuzzyCompare(m_scale->value(), m_screenScale))
        options.scale = m_scale->value();
    options.isTransparent = m_transparent->isChecked();
    options.activeFrameOnly = m_frames->currentIndex() == 1;
    return options;
}

void PictureOptionsDialog::showOutcome()
{
    for (QSpinBox* const side : {m_width, m_height})
        side->setEnabled(!m_asOnScreen->isChecked());
    PictureOptions const chosen = options();
    QString const problem = chosen.problem();
    QSize const pixels = chosen.pixels(m_onScreen, m_screenScale);
    m_outcome->setText(problem.isEmpty() ? QStringLiteral("%1 x %2 pixels").arg(pixels.width()).arg(pixels.height())
                                         : problem);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(problem.isEmpty());
}

} // namespace veldraw::app
