#include "shellcompletion.h"

#include "commandsyntax.h"

#include <algorithm>

namespace {

// What _zrt_value prints for a value of this kind.
QString valueWords(ValueKind kind)
{
    switch (kind) {
    case ValueKind::Mode: {
        QStringList modes;
        for (const char *mode : modeNames())
            modes << QLatin1String(mode);
        return modes.join(QLatin1Char(' '));
    }
    case ValueKind::File:
        return QStringLiteral("<file>");
    case ValueKind::Folder:
        return QStringLiteral("<folder>");
    case ValueKind::Text:
    case ValueKind::None:
        break;
    }
    return QString();
}

QString caseArm(const QString &pattern, const QStringList &lines)
{
    QString arm = QStringLiteral("        %1)").arg(pattern);
    for (const QString &line : lines)
        arm += QStringLiteral("\n            echo '%1'").arg(line);
    return arm + QLatin1String(" ;;\n");
}

} // namespace

QString completionSyntax()
{
    QStringList commands;
    QString forms;
    QString alternatives;
    for (const CommandSyntax &command : commandSyntax()) {
        const QString name = syntaxText(command.name);
        commands << name;
        QStringList formLines;
        QStringList groups;
        for (const FormSyntax &form : command.forms) {
            QStringList words{form.selector.empty() ? QStringLiteral("-") : QLatin1String("--") + syntaxText(form.selector)};
            for (const FormOption &option : formOptions(form)) {
                const QString group = QLatin1String("--") + option.names.join(QLatin1String(" --"));
                words << group;
                if (option.names.size() > 1 && !groups.contains(group))
                    groups << group;
            }
            formLines << words.join(QLatin1Char(' ')) + QLatin1String(" --help");
        }
        forms += caseArm(name, formLines);
        if (!groups.isEmpty())
            alternatives += caseArm(name, groups);
    }
    // Options grouped by what their values are.
    QList<std::pair<QString, QStringList>> values;
    for (const OptionSyntax &option : optionSyntax()) {
        if (option.kind == ValueKind::None)
            continue;
        const QString words = valueWords(option.kind);
        auto same = std::find_if(values.begin(), values.end(), [&](const auto &value) { return value.first == words; });
        if (same == values.end())
            same = values.insert(values.end(), {words, {}});
        same->second << QLatin1String("--") + syntaxText(option.name);
    }
    QString valueArms;
    for (const auto &[words, options] : values)
        valueArms += words.isEmpty() ? QStringLiteral("        %1) ;;\n").arg(options.join(QLatin1Char('|')))
                                     : caseArm(options.join(QLatin1Char('|')), {words});

    return QStringLiteral("_zrt_commands='%1'\n"
                          "\n"
                          "# A command's forms, one a line: the switch that selects it (- for the\n"
                          "# usual form), then the options it takes.\n"
                          "_zrt_forms()\n{\n    case $1 in\n%2    esac\n}\n"
                          "\n"
                          "# A command's groups of options of which only one may be given.\n"
                          "_zrt_alternatives()\n{\n    case $1 in\n%3    esac\n}\n"
                          "\n"
                          "# What goes after an option that takes a value: words to offer, <file>,\n"
                          "# <folder> or nothing. Fails for a switch.\n"
                          "_zrt_value()\n{\n    case $1 in\n%4        *) return 1 ;;\n    esac\n}\n\n")
        .arg(commands.join(QLatin1Char(' ')), forms, alternatives, valueArms);
}
