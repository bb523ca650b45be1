#include "app/window/DataOperation.h"
#include "app/window/HelpViewer.h"
#include "platform/vdsdkuicommon/HelpLauncher.h"
#include "tests/app/support/WindowTest.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

namespace veldraw::tests {

namespace {

using sdk::ui::common::HelpLauncher;

constexpr int widestPicture = 584; // the viewer as it opens, less margins and scroll bar

/// The help pages that come with the program.
class HelpPagesTest : public WindowTest
{
protected:
    HelpPagesTest()
    {
        for (QString const& candidate : app::HelpViewer::standardFolders())
            if (pages.isEmpty()) {
                help = QDir(candidate);
                pages = help.entryList({QStringLiteral("*.html")}, QDir::Files);
            }
    }

    QString sourceOf(QString const& page) const
    {
        QFile file(help.filePath(page));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    /// What the first group of @p pattern matches on a page, in order.
    QStringList found(QString const& page, QString const& pattern) const
    {
        QStringList matches;
        auto matching = QRegularExpression(pattern).globalMatch(sourceOf(page));
        while (matching.hasNext())
            matches.push_back(matching.next().captured(1));
        return matches;
    }

    /// Names of the pictures that the viewer has laid out.
    static QStringList picturesShown(QTextBrowser const& browser)
    {
        QStringList names;
        for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next())
            for (auto part = block.begin(); !part.atEnd(); ++part)
                if (part.fragment().charFormat().isImageFormat())
                    names.push_back(part.fragment().charFormat().toImageFormat().name());
        return names;
    }

    /// On the one visible dialog.
    void clickHelp() const
    {
        for (QDialogButtonBox const* const box : window->findChildren<QDialogButtonBox*>())
            if (QPushButton* const button = box->button(QDialogButtonBox::Help); button && button->isVisible())
                QTest::mouseClick(button, Qt::LeftButton);
    }

    QDir help;
    QStringList pages;
};

} // namespace

TEST_F(HelpPagesTest, HaveOneForEachEntryOfTheDataMenu)
{
    showWindow();
    QStringList topics;
    HelpLauncher::install([&topics](std::string const& topic) { topics.push_back(QString::fromStdString(topic)); });
    for (app::DataOperation const& operation : app::dataOperations()) {
        operation.dialog(*window).launch();
        clickHelp();
        operation.dialog(*window).drop();
    }
    HelpLauncher::install(HelpLauncher::Opener());
    ASSERT_EQ(topics.size(), static_cast<int>(app::dataOperations().size()));
    for (QString const& topic : topics)
        EXPECT_TRUE(pages.contains(topic)) << topic.toStdString();
    EXPECT_EQ(topics.removeDuplicates(), 0) << "no two share one";
}

TEST_F(HelpPagesTest, LinkOnlyToPagesThatAreThere)
{
    for (QString const& page : pages)
        for (QString const& target : found(page, QStringLiteral("href=\"([^\"#]+)")))
            EXPECT_TRUE(pages.contains(target)) << page.toStdString() << " to " << target.toStdString();
}

TEST_F(HelpPagesTest, AreAllInTheIndex)
{
    QStringList listed = found(QStringLiteral("index.html"), QStringLiteral("href=\"([^\"#]+)"));
    listed.push_back(QStringLiteral("index.html"));
    for (QString const& page : pages)
        EXPECT_TRUE(listed.contains(page)) << page.toStdString();
}

TEST_F(HelpPagesTest, ShowTheirPicturesWithinTheViewer)
{
    app::HelpViewer viewer({help.path()});
    auto const& browser = *viewer.findChild<QTextBrowser*>();
    int count = 0;
    for (QString const& page : pages) {
        viewer.openTopic(page);
        for (QString const& name : picturesShown(browser)) {
            QImage const picture(help.filePath(name));
            EXPECT_FALSE(picture.isNull()) << page.toStdString() << ": " << name.toStdString();
            auto const shown =
                browser.document()->resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>().size();
            EXPECT_LE(picture.width(), widestPicture) << name.toStdString();
            EXPECT_TRUE(shown.isEmpty() || shown == picture.size()) << name.toStdString();
            ++count;
        }
    }
    EXPECT_GE(count, 11);
}

TEST_F(HelpPagesTest, SayInWordsWhatTheirPicturesShow)
{
    for (QString const& page : pages)
        EXPECT_EQ(found(page, QStringLiteral("(<img )")).size(),
                  found(page, QStringLiteral("alt=\"([^\"]{10,})")).size())
            << page.toStdString();
}

} // namespace veldraw::tests
