#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace veldraw::app {

/// Finds help topics by the words in them. Topics are read once, at the first search.
class HelpSearch
{
public:
    struct Hit
    {
        QString path;
        QString title;
        QString excerpt; ///< some words around the first place, plain text
    };

    /// @param folders where topics are looked for, first come first served
    explicit HelpSearch(QStringList folders);

    /// The words of what the user typed; case does not count.
    static QStringList wordsOf(QString const& typed);

    /// Topics that have all words, also as parts of longer ones: first those with the words in their titles, then by how often they stand there.
    std::vector<Hit> find(QStringList const& words) const;

    /// The hits as a page with links.
    QString resultPage(QString const& typed) const;

private:
    struct Topic
    {
        QString path;
        QString title;
        QString text;
    };

    std::vector<Topic> const& topics() const;

    QStringList m_folders;
    mutable std::vector<Topic> m_topics;
};

} // namespace veldraw::app
