#pragma once

#include "app/window/HelpSearch.h"

#include <QTextBrowser>

namespace veldraw::app {

/// Shows help topics, and results of searches as pages among them: back and forward go to both. The words of the last search are marked
/// wherever they stand.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    /// @param folders where topics are looked for
    explicit HelpBrowser(QStringList const& folders, QWidget* parent = nullptr);

    /// Shows the topics that have all words of @p typed.
    void search(QString const& typed);

    /// Marks words on the page, an empty text none.
    void mark(QString const& typed);

    QVariant loadResource(int type, QUrl const& name) override;

private:
    void showMarks();

    HelpSearch m_search;
    QStringList m_marked;
    bool m_isResult = false; // what is shown
};

} // namespace veldraw::app
