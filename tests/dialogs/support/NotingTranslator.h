#pragma once

#include <QCoreApplication>
#include <QTranslator>

#include <set>
#include <string>

namespace veldraw::tests {

/// Notes what is asked of a translation, as "context: text", and puts the text in angle brackets; for its scope.
class NotingTranslator : public QTranslator
{
public:
    NotingTranslator() { QCoreApplication::installTranslator(this); }
    ~NotingTranslator() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(char const* context, char const* text, char const*, int) const override
    {
        asked.insert(std::string(context) + ": " + text);
        return QStringLiteral("<%1>").arg(QString::fromUtf8(text));
    }

    mutable std::set<std::string> asked;
};

} // namespace veldraw::tests
