#pragma once

#include "dialogs/frame/QtDialogAbstract.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <string>
#include <vector>

namespace veldraw::tests {

/// A dialog on the frame as the real ones are built: a form with a button box, an action button, later a help action.
class SampleDialog : public dialogs::common::QtDialogAbstract
{
public:
    explicit SampleDialog(QWidget& parent,
                          boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance = nullptr)
        : QtDialogAbstract(parent, relevance)
    {
        resize(300, 200);
        auto* const layout = new QVBoxLayout(this);
        field = new QLineEdit(this);
        box = new QCheckBox(QStringLiteral("&On"), this);
        buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
        layout->addWidget(field);
        layout->addWidget(box);
        layout->addWidget(buttons);
        action = buttons->addButton(QStringLiteral("&Act"), QDialogButtonBox::ActionRole);
    }

    using QtDialogAbstract::addPersistentState;

    QLineEdit* field;
    QCheckBox* box;
    QDialogButtonBox* buttons;
    QPushButton* action;
};

/// Writes down when it is asked to save and to restore.
class RecordingState : public common::SerializerInterface
{
public:
    void save() const override { calls.emplace_back("save"); }
    void restore() const override { calls.emplace_back("restore"); }

    mutable std::vector<std::string> calls;
};

} // namespace veldraw::tests
