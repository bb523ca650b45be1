#include "tests/manual/TextSection.h"

#include "dialogs/bindings/LabelPropertyBinding.h"
#include "dialogs/bindings/TextEditPropertyBinding.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>

#include <boost/make_shared.hpp>

namespace veldraw::tests {

using namespace sdk::ui::dialogs::propertybindings;

namespace {

template <typename T>
boost::shared_ptr<PropertyAbstract<T>> held(T const& start)
{
    return boost::make_shared<Property<T>>(start);
}

boost::shared_ptr<PropertyAbstract<int>> percentage(int start)
{
    using Limits = BoundedValueValidator<int>;
    return boost::make_shared<Property<int>>(
        start, boost::make_shared<Limits>(1, 100, Limits::LowerInclusive, Limits::UpperInclusive));
}

} // namespace

TextSection::TextSection()
    : GallerySection(QStringLiteral("Text fields"))
{
    auto const title = held<std::string>("Wing, run 4");
    bind<TextFieldPropertyBinding<std::string>>(
        addRow(QStringLiteral("&Text"), "text", "TextFieldPropertyBinding<std::string>", new QLineEdit, title), title);

    auto const share = percentage(25);
    bind<TextFieldPropertyBinding<int>>(addRow(QStringLiteral("1 to 1&00"), "whole",
                                               "TextFieldPropertyBinding<int> with limits: try 500", new QLineEdit,
                                               share),
                                        share);

    auto const index = held<long long>(5'000'000);
    bind<TextFieldPropertyBinding<long long>>(
        addRow(QStringLiteral("B&ig"), "wide", "TextFieldPropertyBinding<long long>", new QLineEdit, index), index);

    auto const range = held(1.23456789e-5);
    bind<TextFieldPropertyBinding<double>>(addRow(QStringLiteral("N&umber"), "number",
                                                  "TextFieldPropertyBinding<double>: shows few digits, keeps all",
                                                  new QLineEdit, range),
                                           range);

    auto const notes = held<std::string>("Two lines\nof notes");
    auto* const edit = addRow(QStringLiteral("&Lines"), "lines", "TextEditPropertyBinding", new QTextEdit, notes);
    edit->setMaximumHeight(56);
    bind<TextEditPropertyBinding>(edit, notes, false);

    bind<LabelPropertyBinding>(
        addRow(QStringLiteral("Label"), "label", "LabelPropertyBinding: repeats the text", new QLabel, title), title,
        BindingInterface::UpdateOnIdle);
    bind<LabelPropertyBinding>(
        static_cast<QAbstractButton*>(addRow(QStringLiteral("Button's text"), "caption",
                                             "LabelPropertyBinding on a button, at once", new QPushButton, title)),
        title, BindingInterface::UpdateImmediately);
}

} // namespace veldraw::tests
