#include "app/commandline/CommandLineOptions.h"

#include "app/export/WritableFormats.h"
#include "app/import/ReadableFormats.h"
#include "kernel/session/Session.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

app::CommandLineOptions parse(QStringList arguments)
{
    arguments.prepend(QStringLiteral("veldraw"));
    return app::CommandLineOptions::parse(arguments);
}

struct NoChange : kernel::Change
{
    void apply() noexcept override {}
    void revert() noexcept override {}
};

} // namespace

TEST(CommandLineOptions, FilesAloneOpenTheWindow)
{
    auto const options = parse({QStringLiteral("a.vtu"), QStringLiteral("b.csv")});
    EXPECT_EQ((QStringList{QStringLiteral("a.vtu"), QStringLiteral("b.csv")}), options.files);
    EXPECT_FALSE(options.isBatch());
    EXPECT_TRUE(options.error.isEmpty());
}

TEST(CommandLineOptions, NothingAtAllOpensAnEmptyWindow)
{
    EXPECT_FALSE(parse({}).isBatch());
    EXPECT_TRUE(parse({}).error.isEmpty());
}

TEST(CommandLineOptions, VariablesAreCollectedInOrder)
{
    auto const options = parse({QStringLiteral("a.vtu"), QStringLiteral("--delete-variable"), QStringLiteral("v 1"),
                                QStringLiteral("--delete-variable=u")});
    EXPECT_EQ((QStringList{QStringLiteral("v 1"), QStringLiteral("u")}), options.variablesToDelete);
    EXPECT_TRUE(options.isBatch());
}

TEST(CommandLineOptions, ActionsNeedAFile)
{
    EXPECT_FALSE(parse({QStringLiteral("--info")}).error.isEmpty());
    EXPECT_FALSE(parse({QStringLiteral("--picture"), QStringLiteral("a.png")}).error.isEmpty());
}

TEST(CommandLineOptions, OnlyOneFileCanBeChangedOrSaved)
{
    QStringList const files{QStringLiteral("a"), QStringLiteral("b")};
    EXPECT_FALSE(parse(files + QStringList{QStringLiteral("--export"), QStringLiteral("c.csv")}).error.isEmpty());
    EXPECT_FALSE(parse(files + QStringList{QStringLiteral("--delete-variable"), QStringLiteral("v")}).error.isEmpty());
    EXPECT_TRUE(parse(files + QStringList{QStringLiteral("--info")}).error.isEmpty());
}

TEST(CommandLineOptions, NothingThatIsToBeWrittenIsPassedOver)
{
    for (QString const& name : {QStringLiteral("--export"), QStringLiteral("--picture")})
        EXPECT_EQ(name + QStringLiteral(" is given twice"),
                  parse({QStringLiteral("a.vtu"), name, QStringLiteral("b"), name, QStringLiteral("c")}).error);
}

TEST(CommandLineOptions, PathsOutOfAFilesFolderAreFollowedOnlyWhereItSaysSo)
{
    EXPECT_EQ(app::OutsidePaths::Refuse, parse({QStringLiteral("a.vtm")}).outsidePaths);
    auto const options = parse({QStringLiteral("--follow-paths"), QStringLiteral("a.vtm")});
    EXPECT_EQ(app::OutsidePaths::Follow, options.outsidePaths);
    EXPECT_EQ(QStringList{QStringLiteral("a.vtm")}, options.files);
    EXPECT_FALSE(options.isBatch()) << "holds for the window too";
}

TEST(CommandLineOptions, AfterTwoDashesEverythingIsAFile)
{
    auto const options = parse({QStringLiteral("--"), QStringLiteral("--info")});
    EXPECT_EQ(QStringList{QStringLiteral("--info")}, options.files);
    EXPECT_FALSE(options.isBatch());
}

TEST(CommandLineOptions, WhatIsUnknownIsAnError)
{
    EXPECT_FALSE(parse({QStringLiteral("--nonsense")}).error.isEmpty());
}

TEST(CommandLineOptions, HelpListsTheFilesThatCanBeOpenedAndSaved)
{
    QString const help = app::CommandLineOptions::helpText();
    for (app::FileFormat const& format : app::readableFormats())
        EXPECT_TRUE(help.contains(QString::fromStdString("\n  " + format.text() + "\n"))) << format.description;
    for (app::FileFormat const& format : app::writableFormats())
        EXPECT_TRUE(help.contains(QString::fromStdString("\n  " + format.text() + "\n"))) << format.description;
}

TEST(CommandLineOptions, SayWhenValuesAreLoaded)
{
    EXPECT_EQ(app::Deferral::Auto, parse({QStringLiteral("a.vtu")}).deferral);
    EXPECT_EQ(app::Deferral::Auto, parse({QStringLiteral("--defer=auto"), QStringLiteral("a.vtu")}).deferral);
    EXPECT_EQ(app::Deferral::Always, parse({QStringLiteral("--defer=always"), QStringLiteral("a.vtu")}).deferral);
    EXPECT_EQ(app::Deferral::Never, parse({QStringLiteral("--defer=never"), QStringLiteral("a.vtu")}).deferral);
    EXPECT_EQ(QStringLiteral("--defer takes auto, always or never"),
              parse({QStringLiteral("--defer=sometimes"), QStringLiteral("a.vtu")}).error);
}

TEST(CommandLineOptions, LimitTheMemoryForUndoAndForValuesInMegabytes)
{
    kernel::Session session;
    auto const canUndoUnder = [&](QStringList const& arguments) {
        parse(arguments).memory.applyTo(session);
        session.history().perform("step", std::make_shared<NoChange>());
        return session.history().canUndo();
    };
    std::int64_t const atFirst = session.loadedValues().limit();
    EXPECT_TRUE(canUndoUnder({QStringLiteral("a.vtu")}));
    EXPECT_EQ(session.loadedValues().limit(), atFirst);
    EXPECT_TRUE(canUndoUnder({QStringLiteral("--undo-memory=1"), QStringLiteral("--value-memory=300")}));
    EXPECT_EQ(session.loadedValues().limit(), std::int64_t{300} << 20);
    EXPECT_FALSE(canUndoUnder({QStringLiteral("--undo-memory=0")}));
    EXPECT_EQ(session.loadedValues().limit(), std::int64_t{300} << 20);
}

TEST(CommandLineOptions, WantANumberForAnAmountOfMemory)
{
    for (char const* const amount : {"", "much", "-1", "1.5", "1e3", "8796093022208", "99999999999999999999"}) {
        EXPECT_EQ(parse({QStringLiteral("--undo-memory=") + QLatin1String(amount)}).error,
                  QStringLiteral("--undo-memory takes a number of megabytes"));
        EXPECT_EQ(parse({QStringLiteral("--value-memory=") + QLatin1String(amount)}).error,
                  QStringLiteral("--value-memory takes a number of megabytes"));
    }
    EXPECT_TRUE(parse({QStringLiteral("--undo-memory=8796093022207")}).error.isEmpty());
}

} // namespace veldraw::tests
