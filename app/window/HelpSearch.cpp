#include "app/window/HelpSearch.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr int excerptBefore = 50; // characters around the word
constexpr int excerptAfter = 110;

QString const indexPage = QStringLiteral("index.html"); // names all topics, so it would be found for everything

bool hasAll(QString const& text, QStringList const& words)
{
    return std::all_of(words.begin(), words.end(),
                       [&](QString const& word) { return text.contains(word, Qt::CaseInsensitive); });
}

int countOf(QString const& text, QStringList const& words)
{
    int count = 0;
    for (QString const& word : words)
        count += text.count(word, Qt::CaseInsensitive);
    return count;
}

// Whole words around the first place of any of the words.
QString excerptOf(QString const& text, QStringList const& words)
{
    int place = text.size();
    for (QString const& word : words)
        if (int const found = text.indexOf(word, 0, Qt::CaseInsensitive); found >= 0)
            place = std::min(place, found);
    if (place == text.size())
        place = 0;
    int const blank = place > excerptBefore ? text.indexOf(QLatin1Char(' '), place - excerptBefore) : -1;
    int const begin = std::min(blank + 1, place);
    int end = text.lastIndexOf(QLatin1Char(' '), std::min(place + excerptAfter, text.size() - 1));
    if (end <= place || place + excerptAfter >= text.size())
        end = std::min(place + excerptAfter, text.size());
    QString const dots = QString::fromUtf8("…");
    return (begin > 0 ? dots : QString()) + text.mid(begin, end - begin) + (end < text.size() ? dots : QString());
}

QString withWordsInBold(QString const& plain, QStringList const& words)
{
    QStringList patterns;
    for (QString const& word : words)
        patterns << QRegularExpression::escape(word);
    QRegularExpression const pattern(patterns.join(QLatin1Char('|')), QRegularExpression::CaseInsensitiveOption);
    QString html;
    int done = 0;
    auto matches = pattern.globalMatch(plain);
    while (matches.hasNext()) {
        auto const match = matches.next();
        html += plain.mid(done, match.capturedStart() - done).toHtmlEscaped() +
                QStringLiteral("<b>%1</b>").arg(match.captured().toHtmlEscaped());
        done = match.capturedEnd();
    }
    return html + plain.mid(done).toHtmlEscaped();
}

} // namespace

HelpSearch::HelpSearch(QStringList folders)
    : m_folders(std::move(folders))
{
}

QStringList HelpSearch::wordsOf(QString const& typed)
{
    QStringList words = typed.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words.removeDuplicates();
    return words;
}

std::vector<HelpSearch::Topic> const& HelpSearch::topics() const
{
    if (!m_topics.empty())
        return m_topics;
    QSet<QString> names;
    for (QString const& folder : m_folders)
        for (QString const& name : QDir(folder).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name)) {
            QFile file(QDir(folder).filePath(name));
            if (name == indexPage || names.contains(name) || !file.open(QIODevice::ReadOnly))
                continue;
            names.insert(name);
            QTextDocument document;
            document.setHtml(QString::fromUtf8(file.readAll()));
            QString text = document.toPlainText();
            text.remove(QChar::ObjectReplacementCharacter); // pictures
            QString const title = document.metaInformation(QTextDocument::DocumentTitle);
            m_topics.push_back({file.fileName(), title.isEmpty() ? name : title, text.simplified()});
        }
    return m_topics;
}

std::vector<HelpSearch::Hit> HelpSearch::find(QStringList const& words) const
{
    std::vector<Topic> found;
    if (!words.isEmpty())
        for (Topic const& topic : topics())
            if (hasAll(topic.title + QLatin1Char(' ') + topic.text, words))
                found.push_back(topic);
    std::stable_sort(found.begin(), found.end(), [&](Topic const& one, Topic const& other) {
        int const inTitle = countOf(one.title, words);
        int const inOtherTitle = countOf(other.title, words);
        return inTitle != inOtherTitle ? inTitle > inOtherTitle : countOf(one.text, words) > countOf(other.text, words);
    });
    std::vector<Hit> hits;
    for (Topic const& topic : found)
        hits.push_back({topic.path, topic.title, excerptOf(topic.text, words)});
    return hits;
}

QString HelpSearch::resultPage(QString const& typed) const
{
    QStringList const words = wordsOf(typed);
    QString items;
    for (Hit const& hit : find(words))
        items += QStringLiteral("<p><a href=\"%1\">%2</a><br>%3</p>")
                     .arg(QUrl::fromLocalFile(hit.path).toString().toHtmlEscaped(), hit.title.toHtmlEscaped(),
                          withWordsInBold(hit.excerpt, words));
    if (items.isEmpty())
        items = QStringLiteral("<p>No topic has all of these words. Fewer words, or a part of a word, find more.</p>");
    return QStringLiteral("<html><head><title>Search</title></head><body><h2>Topics with \"%1\"</h2>%2</body></html>")
        .arg(words.join(QLatin1Char(' ')).toHtmlEscaped(), items);
}

} // namespace veldraw::app
