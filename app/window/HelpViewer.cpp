#include "app/window/HelpViewer.h"

#include "app/window/HelpBrowser.h"
#include "app/window/Icons.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QRegularExpression>
#include <QToolBar>
#include <QVBoxLayout>

namespace veldraw::app {

namespace {

QString const indexTopic = QStringLiteral("index.html");

// The text between <title> and </title>, or the file's name.
QString titleOf(QString const& path)
{
    QFile file(path);
    static QRegularExpression const pattern(QStringLiteral("<title>(.*?)</title>"),
                                            QRegularExpression::DotMatchesEverythingOption);
    if (file.open(QIODevice::ReadOnly)) {
        auto const match = pattern.match(QString::fromUtf8(file.read(4096)));
        if (match.hasMatch())
            return match.captured(1).simplified();
    }
    return QFileInfo(path).completeBaseName();
}

} // namespace

HelpViewer::HelpViewer(QStringList folders, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_folders(std::move(folders))
    , m_browser(new HelpBrowser(m_folders))
    , m_searchField(new QLineEdit)
{
    setObjectName(QStringLiteral("helpViewer"));
    setWindowTitle(QStringLiteral("Help"));
    resize(640, 560);
    m_browser->setObjectName(QStringLiteral("helpBrowser"));
    m_browser->setAccessibleName(QStringLiteral("Help topic"));
    m_browser->setOpenExternalLinks(true);
    m_browser->setFrameShape(QFrame::NoFrame);
    m_browser->document()->setDocumentMargin(16);
    connect(m_browser, &QTextBrowser::historyChanged, this, &HelpViewer::updateTitle);

    auto* const bar = new QToolBar;
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    makeButtons(*bar);
    makeSearch(*bar);

    auto* const close = new QAction(this);
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(m_browser);
    m_browser->setFocus();
}

void HelpViewer::makeButtons(QToolBar& bar)
{
    QAction* const index =
        bar.addAction(makeIcon(Glyph::Index), QStringLiteral("&Index"), this, &HelpViewer::openIndex);
    QAction* const back =
        bar.addAction(makeIcon(Glyph::Back), QStringLiteral("&Back"), m_browser, &QTextBrowser::backward);
    QAction* const forward =
        bar.addAction(makeIcon(Glyph::Forward), QStringLiteral("&Forward"), m_browser, &QTextBrowser::forward);
    index->setObjectName(QStringLiteral("helpIndexAction"));
    back->setObjectName(QStringLiteral("helpBackAction"));
    forward->setObjectName(QStringLiteral("helpForwardAction"));
    back->setShortcut(QKeySequence::Back);
    forward->setShortcut(QKeySequence::Forward);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpViewer::makeSearch(QToolBar& bar)
{
    m_searchField->setObjectName(QStringLiteral("helpSearchField"));
    m_searchField->setAccessibleName(QStringLiteral("Search the help"));
    m_searchField->setPlaceholderText(QStringLiteral("Search (Ctrl+F)"));
    m_searchField->setClearButtonEnabled(true);
    bar.addSeparator();
    bar.addWidget(m_searchField);
    connect(m_searchField, &QLineEdit::returnPressed, this, &HelpViewer::search);
    connect(m_searchField, &QLineEdit::textChanged, this, [this](QString const& text) {
        if (text.isEmpty())
            m_browser->mark({});
    });
    auto* const find = new QAction(this);
    find->setObjectName(QStringLiteral("helpSearchAction"));
    find->setShortcut(QKeySequence::Find);
    connect(find, &QAction::triggered, this, [this] {
        m_searchField->setFocus(Qt::ShortcutFocusReason);
        m_searchField->selectAll();
    });
    addAction(find);
}

void HelpViewer::search()
{
    QString const typed = m_searchField->text();
    if (typed.trimmed().isEmpty())
        return openIndex();
    m_browser->search(typed);
    updateTitle();
}

QStringList HelpViewer::standardFolders()
{
    QString const program = QCoreApplication::applicationDirPath();
    QStringList folders;
    for (QString const& candidate :
         {program + QStringLiteral("/../share/veldraw/help"), program + QStringLiteral("/../../../help"),
          program + QStringLiteral("/help"), QStringLiteral(VELDRAW_HELP_FOLDER)})
        if (QDir(candidate).exists())
            folders.push_back(QDir(candidate).canonicalPath());
    folders.removeDuplicates();
    return folders;
}

QString HelpViewer::findTopic(QString const& topic) const
{
    for (QString const& folder : m_folders) {
        QString const path = QDir(folder).filePath(topic);
        if (QFileInfo(path).isFile())
            return path;
    }
    return {};
}

void HelpViewer::openTopic(QString const& topic)
{
    QString const path = findTopic(topic);
    m_searchField->clear(); // else its words would be marked in what somebody else asked for
    if (path.isEmpty())
        m_browser->setHtml(QStringLiteral("<h2>No such topic</h2><p>There is no help topic called <b>%1</b>.</p>"
                                          "<p>Looked in: %2</p>")
                               .arg(topic.toHtmlEscaped(), m_folders.isEmpty()
                                                               ? QStringLiteral("no folder, help is not installed")
                                                               : m_folders.join(QStringLiteral(", ")).toHtmlEscaped()));
    else
        m_browser->setSource(QUrl::fromLocalFile(path));
    bringUp();
}

void HelpViewer::openIndex()
{
    if (!findTopic(indexTopic).isEmpty())
        return openTopic(indexTopic);
    m_browser->setHtml(listOfTopics());
    bringUp();
}

QString HelpViewer::listOfTopics() const
{
    QString items;
    for (QString const& folder : m_folders)
        for (QString const& name : QDir(folder).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name)) {
            QString const path = QDir(folder).filePath(name);
            items += QStringLiteral("<li><a href=\"%1\">%2</a></li>")
                         .arg(QUrl::fromLocalFile(path).toString().toHtmlEscaped(), titleOf(path).toHtmlEscaped());
        }
    return QStringLiteral("<h2>Help topics</h2>") + (items.isEmpty()
                                                         ? QStringLiteral("<p>No help topics are installed.</p>")
                                                         : QStringLiteral("<ul>%1</ul>").arg(items));
}

void HelpViewer::bringUp()
{
    updateTitle();
    show();
    raise();
    activateWindow();
}

void HelpViewer::updateTitle()
{
    QString const title = m_browser->documentTitle();
    setWindowTitle(title.isEmpty() ? QStringLiteral("Help") : QStringLiteral("Help: %1").arg(title));
}

} // namespace veldraw::app
