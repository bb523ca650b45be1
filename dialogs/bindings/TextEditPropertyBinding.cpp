#include "dialogs/bindings/TextEditPropertyBinding.h"

#include "dialogs/bindings/ValueCommit.h"

#include <QTextDocument>
#include <QTextEdit>

namespace veldraw::sdk::ui::dialogs::propertybindings {

TextEditPropertyBinding::TextEditPropertyBinding(QTextEdit* textEdit,
                                                 boost::shared_ptr<PropertyAbstract<std::string>> property,
                                                 bool readOnly)
    : UIPropertyBindingAbstract<std::string>(property, UpdateOnIdle)
    , m_textEdit(textEdit)
    , m_observable(*textEdit, [this] { applyText(); })
    , m_abandonedInput(*textEdit, [this] { updateWidgetValue(); })
    , m_property(property)
{
    textEdit->setReadOnly(readOnly);
    textEdit->setAcceptRichText(false);
    textEdit->setTabChangesFocus(true);
    TextEditPropertyBinding::updateWidgetValue();
}

TextEditPropertyBinding::~TextEditPropertyBinding() = default;

// An equal text isn't written again: that would lose the place that the user looks at.
void TextEditPropertyBinding::updateWidgetValue()
{
    if (!m_textEdit)
        return;
    QString const text = QString::fromStdString(m_property->value());
    if (m_textEdit->toPlainText() != text)
        m_textEdit->setPlainText(text);
    m_textEdit->document()->setModified(false);
}

void TextEditPropertyBinding::applyText()
{
    QPointer<QObject> const self = &m_observable;
    boost::shared_ptr<PropertyAbstract<std::string>> const property = m_property;
    m_textEdit->document()->setModified(false);
    // Writes the widget in any case: the property may have refused or altered the text.
    updateValueOnIdle();
    bool const isTaken = commitValue(*property, m_textEdit->toPlainText().toStdString());
    if (isTaken || !self || !m_textEdit)
        return;
    updateWidgetValue();
    m_textEdit->activateWindow();
    m_textEdit->setFocus();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
