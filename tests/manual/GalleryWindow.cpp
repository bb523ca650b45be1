#include "tests/manual/GalleryWindow.h"

#include "dialogs/bindings/ButtonBinding.h"
#include "tests/manual/ChoiceSection.h"
#include "tests/manual/KernelSection.h"
#include "tests/manual/NumberSection.h"
#include "tests/manual/TextSection.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace veldraw::tests {

namespace {

char const* const look = R"(
    QGroupBox { border: 1px solid #c9ced6; border-radius: 6px; margin-top: 12px; padding: 10px 8px 8px 8px; }
    QGroupBox::title { subcontrol-origin: margin; left: 12px; padding: 0 5px; color: #1f5fa8; font-weight: bold; }
    QLabel[isValue="true"] { background: #eef4ec; color: #1d5c2a; border-radius: 4px; padding: 3px 7px; }
)";

} // namespace

GalleryWindow::GalleryWindow()
{
    setWindowTitle(QStringLiteral("Veldraw: gallery of bindings"));
    setStyleSheet(QString::fromUtf8(look));

    auto* const columns = new QHBoxLayout;
    columns->setSpacing(14);
    columns->addLayout(column({new TextSection, new NumberSection}), 1);
    columns->addLayout(column({new ChoiceSection}), 1);
    columns->addLayout(column({new KernelSection}), 1);

    auto* const page = new QVBoxLayout(this);
    page->addWidget(heading());
    page->addLayout(columns, 1);
}

GalleryWindow::~GalleryWindow() = default;

std::vector<GalleryRow> GalleryWindow::rows() const
{
    std::vector<GalleryRow> all;
    for (GallerySection const* const section : m_sections)
        all.insert(all.end(), section->rows().begin(), section->rows().end());
    return all;
}

QWidget* GalleryWindow::heading()
{
    auto* const bar = new QWidget;
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(4, 0, 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("<b>Use a control, and see on green what its property holds.</b> The "
                                                "tool tip of a control names its binding.")));
    layout->addStretch();
    auto* const button = new QPushButton(QStringLiteral("Start values"));
    button->setObjectName(QStringLiteral("startValues"));
    layout->addWidget(button);
    m_resetBinding = std::make_unique<sdk::ui::dialogs::propertybindings::ButtonBinding>(*button, [this] { reset(); });
    return bar;
}

QVBoxLayout* GalleryWindow::column(std::vector<GallerySection*> const& sections)
{
    auto* const layout = new QVBoxLayout;
    for (GallerySection* const section : sections) {
        layout->addWidget(section);
        m_sections.push_back(section);
    }
    layout->addStretch(1);
    return layout;
}

void GalleryWindow::reset()
{
    for (GalleryRow const& row : rows())
        row.reset();
}

} // namespace veldraw::tests
