// Operations from the command line and from scripts, by the program as a process.
#include "tests/app/support/ProgramFixture.h"

#include <csignal>

namespace veldraw::tests {

namespace {

class ProgramCommandsTest : public ProgramFixture
{
protected:
    /// A table of many values, smoothing of which takes long if there are many passes.
    QString longTable()
    {
        QByteArray text("t,v\n");
        for (int row = 0; row < 200000; ++row)
            text += QByteArray::number(row) + ',' + QByteArray::number((row * 7919) % 1009) + '\n';
        return writeFile(QStringLiteral("long.csv"), text);
    }

    QString path(char const* name) const { return folder.filePath(QString::fromLatin1(name)); }

    static QStringList words(std::initializer_list<char const*> texts)
    {
        QStringList list;
        for (char const* text : texts)
            list << QString::fromUtf8(text);
        return list;
    }

    /// The program with a table, further words, and a file to save. @return what is saved; empty when nothing is
    std::string saved(std::initializer_list<char const*> texts, int status = 0)
    {
        QString const out = path("out.csv");
        QFile::remove(out);
        last = run(QStringList{table()} + words(texts) + QStringList{QStringLiteral("--save"), out});
        EXPECT_EQ(status, last.status) << last.err;
        return QFile::exists(out) ? read(out).toStdString() : std::string();
    }

    Outcome last{};
};

} // namespace

TEST_F(ProgramCommandsTest, RunInTheirOrderBeforeTheDataAreSaved)
{
    EXPECT_EQ("t,v,pressure\n0,0,-1.5\n1,1,6\n2,4,7\n",
              saved({"--do", "rename-variable variable=w name=pressure", "--do",
                     "set-value zone=1 variable=pressure index=1 value=-1.5"}));
    EXPECT_EQ("", last.err);
    EXPECT_EQ("", saved({"--do", "set-value zone=1 variable=pressure index=1 value=-1.5", "--do",
                         "rename-variable variable=w name=pressure"},
                        1))
        << "the other way round there is no such variable yet";
    EXPECT_EQ("veldraw: --do 1, column 27: There is no variable called \"pressure\".\n", last.err);
}

TEST_F(ProgramCommandsTest, LeaveNothingToRecoverWithoutAWindow)
{
    QString const recovery = path("recovery");
    qputenv("VELDRAW_RECOVERY_FOLDER", recovery.toUtf8());
    EXPECT_NE("", saved({"--do", "rename-variable variable=w name=a", "--keep-going", "--do",
                         "delete-variables variables=t"}));
    qunsetenv("VELDRAW_RECOVERY_FOLDER");
    EXPECT_FALSE(QFile::exists(recovery));
}

TEST_F(ProgramCommandsTest, OfScriptsAndArgumentsRunAsTheyAreGiven)
{
    QString const script = writeFile(QStringLiteral("a.vdo"), "rename-variable variable=b name=c\n");
    EXPECT_EQ("t,v,d\n0,0,5\n1,1,6\n2,4,7\n",
              saved({"--do", "rename-variable variable=w name=b", "--run", script.toUtf8().constData(), "--do",
                     "rename-variable variable=c name=d"}));
}

TEST_F(ProgramCommandsTest, ThatAreWrongByThemselvesChangeNothing)
{
    EXPECT_EQ("", saved({"--do", "delete-variables variables=w", "--do", "delete-variabels variables=v"}, 2));
    EXPECT_EQ("veldraw: --do 2, column 1: There is no operation \"delete-variabels\". Did you mean "
              "\"delete-variables\"?\n",
              last.err);
    EXPECT_EQ("", saved({"--do", "smooth zone=1 variable=v passes=0"}, 2));
    EXPECT_EQ("veldraw: --do, column 33: \"passes\" takes a number at least 1, at most 2147483647, not 0.\n", last.err);
    EXPECT_EQ("", saved({"--do", "smooth zone=1 variable=\"v"}, 2));
    EXPECT_EQ("veldraw: --do, column 24: The quotation mark that ends this text is missing.\n", last.err);
}

TEST_F(ProgramCommandsTest, ThatFailEndTheRunUnlessItIsToGoOn)
{
    EXPECT_EQ("", saved({"--do", "delete-variables variables=*", "--do", "set-title title=a"}, 1));
    EXPECT_EQ(
        "veldraw: --do 1, column 1: Error attempting to delete variable(s): The last variable of a data set cannot "
        "be deleted.\n",
        last.err);
    EXPECT_EQ("t,v\n0,0\n1,1\n2,4\n",
              saved({"--keep-going", "--do", "delete-variables variables=*", "--do",
                     "delete-variables variables=nobody", "--do", "delete-variables variables=w"},
                    1));
}

TEST_F(ProgramCommandsTest, AreCheckedAndNotDoneInADryRun)
{
    EXPECT_EQ("", saved({"--dry-run", "--do", "delete-variables variables=w"}));
    EXPECT_EQ("", last.err);
    EXPECT_EQ("", saved({"--dry-run", "--do", "delete-variables variables=q"}, 1));
    EXPECT_EQ("veldraw: --do, column 28: There is no variable called \"q\".\n", last.err);
    EXPECT_EQ("", saved({"--dry-run", "--do", "delete-variables variables=w", "--do", "set-title"}, 2));
}

TEST_F(ProgramCommandsTest, OfAScriptAreNamedByLineAndColumn)
{
    QString const script =
        writeFile(QStringLiteral("clean.vdo"),
                  "\xEF\xBB\xBF# clean\r\n\r\n  set-title title=a\r\n  smooth zone=7 variable=v\r\n");
    EXPECT_EQ("", saved({"--run", script.toUtf8().constData()}, 1));
    EXPECT_EQ("veldraw: " + script.toStdString() + ":4:15: There is no zone 7; the last one is 1.\n", last.err);
}

TEST_F(ProgramCommandsTest, MayComeFromOtherScriptsButNotForEver)
{
    QString const inner = writeFile(QStringLiteral("inner.vdo"), "rename-variable variable=w name=x");
    QString const outer = writeFile(QStringLiteral("outer.vdo"),
                                    "run file=\"" + inner.toUtf8() + "\"\nrun file=\"" + inner.toUtf8() + "\"\n");
    EXPECT_EQ("", saved({"--run", outer.toUtf8().constData()}, 1)) << "the second time there is no w";
    EXPECT_EQ("veldraw: " + inner.toStdString() + ":1:26: There is no variable called \"w\".\n", last.err);
    writeFile(QStringLiteral("inner.vdo"), "run file=\"" + outer.toUtf8() + "\"");
    EXPECT_EQ("", saved({"--run", outer.toUtf8().constData()}, 2));
    EXPECT_EQ("veldraw: " + inner.toStdString() + ":1:1: \"" + outer.toStdString() + "\" runs itself.\n", last.err);
}

TEST_F(ProgramCommandsTest, ComeFromScriptsThatCanBeRead)
{
    EXPECT_EQ("", saved({"--run", "/nowhere/a.vdo"}, 2));
    EXPECT_EQ("veldraw: Cannot read the script \"/nowhere/a.vdo\": No such file or directory.\n", last.err);
    EXPECT_EQ("", saved({"--run", folder.path().toUtf8().constData()}, 2));
    QString const script = writeFile(QStringLiteral("latin.vdo"), "set-title title=\xE4");
    EXPECT_EQ("", saved({"--run", script.toUtf8().constData()}, 2));
    EXPECT_EQ("veldraw: The script \"" + script.toStdString() + "\" is no text in UTF-8.\n", last.err);
    EXPECT_EQ("", saved({"--run", ""}, 2));
    EXPECT_EQ("", saved({"--do", ""}, 2));
}

TEST_F(ProgramCommandsTest, OpenAndSaveFilesThemselves)
{
    QString const copy = path("copy.csv");
    QString const script = writeFile(QStringLiteral("all.vdo"), "open files=\"" + table().toUtf8() +
                                                                    "\"\ndelete-variables variables=v\nsave file=\"" +
                                                                    copy.toUtf8() + "\"\n");
    Outcome const outcome = run({QStringLiteral("--run"), script});
    EXPECT_EQ(0, outcome.status) << outcome.err;
    EXPECT_EQ("t,w\n0,5\n1,6\n2,7\n", read(copy));
    Outcome const failed = run(words({"--do", "open files=/nowhere/b.csv"}));
    EXPECT_EQ(1, failed.status);
    EXPECT_TRUE(contains(failed.err, "veldraw: --do, column 1: Cannot open \"/nowhere/b.csv\"")) << failed.err;
    Outcome const nothing = run(words({"--do", "save file=/tmp/never.csv"}));
    EXPECT_EQ(1, nothing.status);
    EXPECT_EQ("veldraw: --do, column 1: \"save\" needs a data set, and none is open.\n", nothing.err);
}

TEST_F(ProgramCommandsTest, MakePicturesOnAVirtualDisplay)
{
    QString const picture = path("p.png");
    Outcome const outcome =
        run(QStringList{table(), QStringLiteral("--do"), QStringLiteral("save-picture file=\"%1\"").arg(picture)});
    EXPECT_EQ(0, outcome.status) << outcome.err;
    EXPECT_EQ("\x89PNG", read(picture).left(4));
    Outcome const sized = run(QStringList{
        table(), QStringLiteral("--do"),
        QStringLiteral("save-picture file=\"%1\" width=300 height=200 scale=1.5 transparent=yes frames=active")
            .arg(picture)});
    EXPECT_EQ(0, sized.status) << sized.err;
    EXPECT_EQ(QSize(450, 300), QImage(picture).size());
    EXPECT_TRUE(QImage(picture).hasAlphaChannel());
}

TEST_F(ProgramCommandsTest, RefuseImpossiblePictures)
{
    auto const problemOf = [this](char const* options) {
        Outcome const outcome =
            run(QStringList{table(), QStringLiteral("--do"),
                            QStringLiteral("save-picture file=\"%1\" %2").arg(path("p.png"), QLatin1String(options))});
        EXPECT_EQ(1, outcome.status);
        EXPECT_FALSE(QFile::exists(path("p.png")));
        return outcome.err;
    };
    EXPECT_TRUE(contains(problemOf("width=300"), "The width and the height of a picture are given together."));
    EXPECT_TRUE(contains(problemOf("width=9000 height=9000"), "is too large"));
}

TEST_F(ProgramCommandsTest, AreListedAndExplained)
{
    Outcome const list = run(words({"--list-operations"}));
    EXPECT_EQ(0, list.status);
    for (char const* name : {"mirror-zones  ", "krige  ", "open  ", "save-picture  ", "run  "})
        EXPECT_TRUE(contains(list.out, std::string("\n") + name) || list.out.rfind(name, 0) == 0) << name;
    Outcome const help = run(words({"--help", "smooth"}));
    EXPECT_EQ(0, help.status);
    EXPECT_TRUE(contains(help.out, "at most 0.95; otherwise 0.5.")) << help.out;
    Outcome const unknown = run(words({"--help", "smoth"}));
    EXPECT_EQ(2, unknown.status);
    EXPECT_EQ("veldraw: There is no operation \"smoth\". Did you mean \"smooth\"?\n", unknown.err);
}

TEST_F(ProgramCommandsTest, TellWhatCameOfThemIfThatIsWanted)
{
    saved({"--verbose", "--do", "duplicate-zones zones=1", "--do", "set-title title=a", "--do",
           "rename-zone zone=2 name=b", "--overwrite"});
    EXPECT_TRUE(contains(last.err, "veldraw: --do 1, column 1: duplicate-zones: Duplicate zone(s) created\n"
                                   "veldraw: --do 2, column 1: set-title: done\n"))
        << last.err;
    saved({"--do", "smooth zone=1 variable=v"});
    EXPECT_TRUE(contains(last.err, "veldraw: ")) << "what an operation reports is told: " << last.err;
    EXPECT_FALSE(contains(last.err, "\r")) << "no progress where there is no terminal";
    saved({"--quiet", "--do", "smooth zone=1 variable=v"});
    EXPECT_EQ("", last.err);
    EXPECT_EQ("", saved({"--quiet", "--verbose"}, 2));
}

TEST_F(ProgramCommandsTest, GiveTheSameOnAnyNumberOfThreads)
{
    QString const file = longTable();
    QByteArray first;
    for (char const* threads : {"1", "2", "7"}) {
        QString const out = path("threads.csv");
        Outcome const outcome = run({file, QStringLiteral("--threads"), QString::fromLatin1(threads),
                                     QStringLiteral("--do"), QStringLiteral("smooth zone=1 variable=v passes=3"),
                                     QStringLiteral("--save"), out, QStringLiteral("--quiet")});
        EXPECT_EQ(0, outcome.status) << outcome.err;
        QByteArray const values = read(out);
        EXPECT_LT(1000000, values.size());
        EXPECT_TRUE(first.isEmpty() || values == first) << threads;
        first = values;
    }
    EXPECT_EQ(2, run({file, QStringLiteral("--threads"), QStringLiteral("0"), QStringLiteral("--info")}).status);
}

TEST_F(ProgramCommandsTest, AreCancelledByCtrlCAndLeaveNoFile)
{
    QString const file = longTable();
    QString const out = path("never.csv");
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VELDRAW_PROGRAM),
                  {file, QStringLiteral("--verbose"), QStringLiteral("--do"), QStringLiteral("set-title title=a"),
                   QStringLiteral("--do"), QStringLiteral("smooth zone=1 variable=v passes=2147483647"),
                   QStringLiteral("--save"), out});
    ASSERT_TRUE(process.waitForStarted());
    process.setReadChannel(QProcess::StandardError);
    QByteArray told;
    while (!told.contains("set-title: done") && process.waitForReadyRead(60000))
        told += process.readAllStandardError();
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(QProcess::NormalExit, process.exitStatus());
    EXPECT_EQ(1, process.exitCode());
    told += process.readAllStandardError();
    EXPECT_TRUE(told.contains("ancelled")) << told.toStdString();
    EXPECT_FALSE(QFile::exists(out));
}

TEST_F(ProgramCommandsTest, AreCompletedByTheShell)
{
    QString const script =
        writeFile(QStringLiteral("completion.bash"), run(words({"--completion", "bash"})).out.c_str());
    auto const completed = [&](QByteArray const& words) {
        QProcess bash;
        bash.start(QStringLiteral("bash"),
                   {QStringLiteral("-c"),
                    QStringLiteral("source '%1'; COMP_WORDS=(%2); COMP_CWORD=$((${#COMP_WORDS[@]}-1)); _veldraw; "
                                   "printf '%s;' \"${COMPREPLY[@]}\"")
                        .arg(script, QString::fromUtf8(words))});
        EXPECT_TRUE(bash.waitForFinished(60000));
        EXPECT_EQ("", bash.readAllStandardError());
        return bash.readAllStandardOutput().toStdString();
    };
    EXPECT_EQ("mirror-zones;", completed("veldraw a.vtu --do mirr"));
    EXPECT_EQ("'mirror-zones plane=;", completed("veldraw a.vtu --do \"'mirror-zones pl\""));
    EXPECT_EQ("--dry-run;", completed("veldraw --dr"));
    EXPECT_EQ("smooth;", completed("veldraw --help smo"));
    for (char const* shell : {"zsh", "fish"})
        EXPECT_TRUE(contains(run(words({"--completion", shell})).out, "mirror-zones")) << shell;
    EXPECT_EQ(2, run(words({"--completion", "csh"})).status);
}

} // namespace veldraw::tests
