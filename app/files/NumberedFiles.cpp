#include "app/files/NumberedFiles.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace veldraw::app {

namespace {

int startOfNumber(QString const& baseName)
{
    int start = baseName.size();
    while (start > 0 && baseName.at(start - 1) >= QLatin1Char('0') && baseName.at(start - 1) <= QLatin1Char('9'))
        --start;
    return start;
}

// What is the same for all files of a group; empty for a file without a number.
QString commonPart(QFileInfo const& file)
{
    QString const base = file.completeBaseName();
    int const start = startOfNumber(base);
    return start == base.size() ? QString()
                                : file.absolutePath() + QLatin1Char('/') + base.left(start) + QLatin1Char('\n') +
                                      file.suffix().toLower();
}

QString nameOf(QString const& path)
{
    QString const base = QFileInfo(path).completeBaseName();
    QString name = base.left(startOfNumber(base));
    while (name.endsWith(QLatin1Char('_')) || name.endsWith(QLatin1Char('-')) || name.endsWith(QLatin1Char('.')) ||
           name.endsWith(QLatin1Char(' ')))
        name.chop(1);
    return name.isEmpty() ? base : name;
}

bool haveNumbersOfTheirOwn(QStringList const& sorted)
{
    return std::adjacent_find(sorted.begin(), sorted.end(), [](QString const& left, QString const& right) {
               return !(numberOf(left) < numberOf(right));
           }) == sorted.end();
}

} // namespace

double numberOf(QString const& path)
{
    QString const base = QFileInfo(path).completeBaseName();
    return base.mid(startOfNumber(base)).toDouble();
}

std::vector<FileGroup> groupsOf(QStringList const& paths)
{
    QHash<QString, QStringList> alike;
    for (QString const& path : paths)
        alike[commonPart(QFileInfo(path))].append(path);
    for (QStringList& group : alike)
        std::stable_sort(group.begin(), group.end(),
                         [](QString const& left, QString const& right) { return numberOf(left) < numberOf(right); });
    std::vector<FileGroup> groups;
    for (QString const& path : paths) {
        QString const key = commonPart(QFileInfo(path));
        QStringList const group = alike.value(key);
        bool const isSeries = !key.isEmpty() && group.size() > 1 && haveNumbersOfTheirOwn(group);
        if (!isSeries)
            groups.push_back({{path}, QFileInfo(path).completeBaseName()});
        else if (std::none_of(groups.begin(), groups.end(),
                              [&group](FileGroup const& known) { return known.paths == group; }))
            groups.push_back({group, nameOf(path)});
    }
    return groups;
}

} // namespace veldraw::app
