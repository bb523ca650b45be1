#pragma once

#include <QStringList>
#include <QWidget>

class QAction;
class QLineEdit;
class QToolBar;

namespace veldraw::app {

class HelpBrowser;

/// The window with the help topics: index, back, forward, search. Not modal, one for the program.
class HelpViewer : public QWidget
{
    Q_OBJECT

public:
    /// @param folders where topics are looked for, first come first served
    explicit HelpViewer(QStringList folders, QWidget* parent = nullptr);

    /// Folders of an installed program and of a build, in this order.
    static QStringList standardFolders();

    /// Shows a topic, for instance "delete_variable.html", and brings the window up. A topic that is not there is told in words.
    void openTopic(QString const& topic);

    /// Shows "index.html", or a list of all topics where there is no such page.
    void openIndex();

private:
    QString findTopic(QString const& topic) const;
    QString listOfTopics() const;
    void makeButtons(QToolBar& bar);
    void makeSearch(QToolBar& bar);
    void search();
    void bringUp();
    void updateTitle();

    QStringList m_folders;
    HelpBrowser* m_browser;
    QLineEdit* m_searchField;
};

} // namespace veldraw::app
