#include "tests/manual/GallerySection.h"

#include <QFontDatabase>
#include <QListView>
#include <QTextEdit>

namespace veldraw::tests {

GallerySection::GallerySection(QString const& title)
    : QGroupBox(title)
    , m_grid(new QGridLayout(this))
{
    m_grid->setColumnStretch(1, 1);
    m_grid->setColumnMinimumWidth(0, 96);
    m_grid->setColumnMinimumWidth(1, 180);
    m_grid->setColumnMinimumWidth(2, 150);
    m_grid->setHorizontalSpacing(12);
}

GallerySection::~GallerySection() = default;

void GallerySection::addWide(QWidget* widget)
{
    m_grid->addWidget(widget, m_grid->rowCount(), 0, 1, 3);
}

QLabel* GallerySection::place(QString const& caption, char const* name, char const* hint, QWidget* control)
{
    int const row = m_grid->rowCount();
    bool const isTall = qobject_cast<QListView*>(control) || qobject_cast<QTextEdit*>(control);
    Qt::Alignment const side = isTall ? Qt::AlignTop : Qt::AlignVCenter;

    auto* const label = new QLabel(caption);
    label->setBuddy(control);
    label->setToolTip(QString::fromUtf8(hint));
    control->setObjectName(QString::fromUtf8(name));
    control->setToolTip(QString::fromUtf8(hint));

    auto* const value = new QLabel;
    value->setObjectName(control->objectName() + QStringLiteral("Value"));
    value->setProperty("isValue", true);
    value->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);

    m_grid->addWidget(label, row, 0, side);
    m_grid->addWidget(control, row, 1);
    m_grid->addWidget(value, row, 2, side);
    return value;
}

void GallerySection::show(QLabel* label, QString const& text)
{
    constexpr int room = 24;
    label->setText(text.size() <= room ? text : text.left(room - 1) + QChar(0x2026));
    label->setToolTip(text);
}

} // namespace veldraw::tests
