#pragma once

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QListView>
#include <QObject>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::tests {

/// Notes the widgets to which objects are added, by name and each once; for its scope. A binding adds one to its field, list or
/// combo box, and what a widget has from the start comes before it has a name.
class AdditionsToWidgets : public QObject
{
public:
    /// Called with each widget when its binding is being made, to see what else the window has by then.
    using Look = std::function<void(QWidget& widget)>;

    explicit AdditionsToWidgets(Look look = {})
        : m_look(std::move(look))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        std::string const name = watched->objectName().toStdString();
        bool const isNew = std::find(names.begin(), names.end(), name) == names.end();
        bool const isBound =
            qobject_cast<QLineEdit*>(watched) || qobject_cast<QComboBox*>(watched) || qobject_cast<QListView*>(watched);
        if (event->type() == QEvent::ChildAdded && isBound && isNew && !name.empty()) {
            names.push_back(name);
            if (m_look)
                m_look(*static_cast<QWidget*>(watched));
        }
        return false;
    }

    std::vector<std::string> names;

private:
    Look m_look;
};

} // namespace veldraw::tests
