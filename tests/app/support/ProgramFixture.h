#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <string>

namespace veldraw::tests {

/// What a program ended with and printed.
struct Outcome
{
    int status;
    std::string out;
    std::string err;
};

/// Starts the program as a process, with files of a folder of its own.
class ProgramFixture : public ::testing::Test
{
protected:
    // No display, unless a test needs one and makes its own.
    static Outcome run(QStringList const& arguments, QString const& outputFile = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        // Keeps drivers loaded in the program too when leaks are looked for, as tools/with-display does.
        if (environment.contains(QStringLiteral("VELDRAW_PRELOAD")))
            environment.insert(QStringLiteral("LD_PRELOAD"), environment.value(QStringLiteral("VELDRAW_PRELOAD")));
        QProcess process;
        process.setProcessEnvironment(environment);
        if (!outputFile.isEmpty())
            process.setStandardOutputFile(outputFile);
        process.start(QStringLiteral(VELDRAW_PROGRAM), arguments);
        bool const ended = process.waitForFinished(120000);
        EXPECT_TRUE(ended);
        EXPECT_EQ(QProcess::NormalExit, process.exitStatus());
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    QString writeFile(QString const& name, QByteArray const& content)
    {
        QString const path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }

    QString table() { return writeFile(QStringLiteral("series.csv"), "t,v,w\n0,0,5\n1,1,6\n2,4,7\n"); }

    static QByteArray read(QString const& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    QTemporaryDir folder;
};

inline bool contains(std::string const& text, std::string const& part)
{
    return text.find(part) != std::string::npos;
}

} // namespace veldraw::tests
