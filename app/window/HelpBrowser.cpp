#include "app/window/HelpBrowser.h"

#include <QTextCursor>

namespace veldraw::app {

namespace {

QString const searchScheme = QStringLiteral("search");
QString const pathBefore = QStringLiteral("for/"); // so that what is typed never reads as the name of a machine

} // namespace

HelpBrowser::HelpBrowser(QStringList const& folders, QWidget* parent)
    : QTextBrowser(parent)
    , m_search(folders)
{
    setSearchPaths(folders);
    connect(this, &QTextBrowser::sourceChanged, this, [this](QUrl const& url) { // source() is still the one before
        m_isResult = url.scheme() == searchScheme;
        showMarks();
    });
}

void HelpBrowser::search(QString const& typed)
{
    mark(typed);
    QUrl address;
    address.setScheme(searchScheme);
    address.setPath(pathBefore + typed.simplified());
    setSource(address);
}

void HelpBrowser::mark(QString const& typed)
{
    m_marked = HelpSearch::wordsOf(typed);
    showMarks();
}

QVariant HelpBrowser::loadResource(int type, QUrl const& name)
{
    if (name.scheme() == searchScheme)
        return type == QTextDocument::HtmlResource ? m_search.resultPage(name.path().mid(pathBefore.size()))
                                                   : QVariant();
    return QTextBrowser::loadResource(type, name);
}

// The first of them is brought into sight, but the page of results is read from its top.
void HelpBrowser::showMarks()
{
    QList<ExtraSelection> marks;
    QTextCursor first;
    for (QString const& word : m_isResult ? QStringList() : m_marked)
        for (QTextCursor place = document()->find(word); !place.isNull(); place = document()->find(word, place)) {
            ExtraSelection mark;
            mark.cursor = place;
            mark.format.setBackground(QColor(0xff, 0xe6, 0x80));
            mark.format.setForeground(Qt::black);
            marks.push_back(mark);
            if (first.isNull() || place.selectionStart() < first.selectionStart())
                first = place;
        }
    setExtraSelections(marks);
    if (first.isNull())
        return;
    first.clearSelection();
    setTextCursor(first);
    ensureCursorVisible();
}

} // namespace veldraw::app
