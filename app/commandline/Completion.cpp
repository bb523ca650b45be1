#include "app/commandline/Completion.h"

#include <QStringList>

namespace veldraw::app {

namespace {

QStringList const shells{QStringLiteral("bash"), QStringLiteral("zsh"), QStringLiteral("fish")};

QStringList const optionNames{QStringLiteral("--delete-variable"),
                              QStringLiteral("--do"),
                              QStringLiteral("--run"),
                              QStringLiteral("--info"),
                              QStringLiteral("--save"),
                              QStringLiteral("--export"),
                              QStringLiteral("--picture"),
                              QStringLiteral("--dry-run"),
                              QStringLiteral("--list-operations"),
                              QStringLiteral("--keep-going"),
                              QStringLiteral("--quiet"),
                              QStringLiteral("--verbose"),
                              QStringLiteral("--threads"),
                              QStringLiteral("--defer"),
                              QStringLiteral("--completion"),
                              QStringLiteral("--value-memory"),
                              QStringLiteral("--undo-memory"),
                              QStringLiteral("--follow-paths"),
                              QStringLiteral("--overwrite"),
                              QStringLiteral("--help"),
                              QStringLiteral("--version")};

QStringList operationNames(operations::Registry const& registry)
{
    QStringList names;
    for (operations::OperationEntry const& entry : registry.entries())
        names << QString::fromStdString(entry.name);
    return names;
}

QString parameterNames(operations::OperationEntry const& entry)
{
    QStringList names;
    for (operations::Parameter const& parameter : entry.parameters)
        names << QString::fromStdString(parameter.name) + QLatin1Char('=');
    return names.join(QLatin1Char(' '));
}

/// The branches of a case statement of a shell: an operation, and its parameters.
QString branches(operations::Registry const& registry)
{
    QString text;
    for (operations::OperationEntry const& entry : registry.entries())
        text += QStringLiteral("        %1) words=\"%2\" ;;\n")
                    .arg(QString::fromStdString(entry.name), parameterNames(entry));
    return text;
}

// What is completed within the quotes of a command keeps the words before it.
QString bashScript(operations::Registry const& registry)
{
    return QStringLiteral(R"(# Completion of veldraw for bash.
_veldraw() {
    local current="${COMP_WORDS[COMP_CWORD]}" before="${COMP_WORDS[COMP_CWORD-1]}" words="" quote="" kept=""
    if [[ $before == --do ]]; then
        case $current in \'*|\"*) quote=${current:0:1} current=${current:1} ;; esac
        [[ $current == *" "* ]] && kept="${current% *} "
        case ${current%% *} in
%1        esac
        [[ -z $kept ]] && words="%2"
        COMPREPLY=($(compgen -W "$words" -- "${current##* }"))
        COMPREPLY=("${COMPREPLY[@]/#/$quote$kept}")
        compopt -o nospace 2>/dev/null
    elif [[ $before == --help ]]; then
        COMPREPLY=($(compgen -W "%2" -- "$current"))
    elif [[ $before == --defer ]]; then
        COMPREPLY=($(compgen -W "auto always never" -- "$current"))
    elif [[ $before == --completion ]]; then
        COMPREPLY=($(compgen -W "bash zsh fish" -- "$current"))
    elif [[ $current == -* ]]; then
        COMPREPLY=($(compgen -W "%3" -- "$current"))
    else
        compopt -o default 2>/dev/null
        COMPREPLY=()
    fi
}
complete -F _veldraw veldraw
)")
        .arg(branches(registry), operationNames(registry).join(QLatin1Char(' ')), optionNames.join(QLatin1Char(' ')));
}

QString zshScript(operations::Registry const& registry)
{
    return QStringLiteral(R"(#compdef veldraw
# Completion of veldraw for zsh.
_veldraw() {
    local before="${words[CURRENT-1]}" current="${(Q)words[CURRENT]}" names=""
    if [[ $before == --do ]]; then
        case ${current%% *} in
%1        esac
        if [[ $current == *" "* ]]; then
            compset -P '* '
            compadd -S '' -- ${=names}
        else
            compadd -- %2
        fi
    elif [[ $before == --help ]]; then
        compadd -- %2
    elif [[ $before == --defer ]]; then
        compadd auto always never
    elif [[ $before == --completion ]]; then
        compadd bash zsh fish
    elif [[ ${words[CURRENT]} == -* ]]; then
        compadd -- %3
    else
        _files
    fi
}
compdef _veldraw veldraw
)")
        .arg(branches(registry).replace(QStringLiteral("words="), QStringLiteral("names=")),
             operationNames(registry).join(QLatin1Char(' ')), optionNames.join(QLatin1Char(' ')));
}

QString fishScript(operations::Registry const& registry)
{
    QString text = QStringLiteral("# Completion of veldraw for fish.\n");
    for (QString const& option : optionNames) {
        bool const takesOperation = option == QLatin1String("--do") || option == QLatin1String("--help");
        QString const names = takesOperation
                                  ? QStringLiteral(" -x -a \"%1\"").arg(operationNames(registry).join(QLatin1Char(' ')))
                                  : QString();
        text += QStringLiteral("complete -c veldraw -l %1%2\n").arg(option.mid(2), names);
    }
    return text;
}

} // namespace

bool isCompletedShell(QString const& shell)
{
    return shells.contains(shell);
}

QString completionScript(QString const& shell, operations::Registry const& registry)
{
    if (shell == shells.at(0))
        return bashScript(registry);
    return shell == shells.at(1) ? zshScript(registry) : fishScript(registry);
}

} // namespace veldraw::app
