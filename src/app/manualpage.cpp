#include "manualpage.h"

#include "commandsyntax.h"

#include <QRegularExpression>

namespace {

// Text as roff prints it: backslashes and hyphens escaped, a line never taken
// for a request.
QString roff(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\e")).replace(QLatin1Char('-'), QLatin1String("\\-"));
    static const QRegularExpression request(QStringLiteral("^([.'])"), QRegularExpression::MultilineOption);
    return text.replace(request, QStringLiteral("\\&\\1"));
}

// A usage word in bold (an option) or italics (a value), its brackets plain.
QString usageWord(const QString &word)
{
    static const QRegularExpression parts(QStringLiteral("^(\\[*)(.*?)(\\]*)$"));
    const QRegularExpressionMatch match = parts.match(word);
    const QString core = match.captured(2);
    const QString font = core.startsWith(QLatin1Char('-')) ? QStringLiteral("B") : QStringLiteral("I");
    const QString shown = core == QLatin1String("|") ? core : QStringLiteral("\\f%1%2\\fR").arg(font, roff(core));
    return match.captured(1) + shown + match.captured(3);
}

// One form as a synopsis: lines break between an option and the next, never
// inside brackets or between an option and its value.
QString synopsis(const CommandSyntax &command, const FormSyntax &form)
{
    QStringList units;
    for (const QString &unit : usageUnits(form)) {
        QStringList words = unit.split(QLatin1Char(' '));
        for (QString &word : words)
            word = usageWord(word);
        units << words.join(QLatin1String("\\ "));
    }
    return QStringLiteral(".SY \"zrt %1\"\n%2\n.YS\n").arg(syntaxText(command.name), units.join(QLatin1Char('\n')));
}

QString synopses()
{
    QString page;
    for (const CommandSyntax &command : commandSyntax()) {
        for (const FormSyntax &form : command.forms)
            page += synopsis(command, form);
    }
    return page;
}

QString commands()
{
    QString page;
    for (const CommandSyntax &command : commandSyntax()) {
        page += QStringLiteral(".SS %1\n").arg(syntaxText(command.name));
        for (const FormSyntax &form : command.forms)
            page += synopsis(command, form);
        page += QLatin1String(".PP\n") + roff(syntaxText(command.description)) + QLatin1Char('\n');
    }
    return page;
}

// Where an option goes: the commands, or the forms of a command, that take it.
QString takenBy(const QString &option)
{
    QStringList taking;
    for (const CommandSyntax &command : commandSyntax()) {
        const QString name = QLatin1String("zrt ") + syntaxText(command.name);
        QStringList forms;
        QStringList selectors;
        for (const FormSyntax &form : command.forms) {
            const QString selector = QLatin1String("--") + syntaxText(form.selector);
            if (!form.selector.empty())
                selectors << selector;
            if (formTakes(form, option))
                forms << (form.selector.empty() ? QString() : selector);
        }
        if (forms.size() == qsizetype(command.forms.size()))
            taking << name;
        else if (forms.contains(QString()))
            taking << name + QLatin1String(" without ") + selectors.join(QLatin1String(" or "));
        else
            for (const QString &selector : forms)
                taking << name + QLatin1Char(' ') + selector;
    }
    return QLatin1String("With ") + taking.join(QLatin1String(", ")) + QLatin1Char('.');
}

QString options()
{
    QString page;
    for (const OptionSyntax &option : optionSyntax()) {
        const QString name = syntaxText(option.name);
        page += QStringLiteral(".TP\n\\fB\\-\\-%1\\fR").arg(roff(name));
        if (!option.value.empty())
            page += QStringLiteral(" \\fI%1\\fR").arg(syntaxText(option.value));
        page += QLatin1Char('\n') + roff(syntaxText(option.description)) + QLatin1Char('\n') + roff(takenBy(name))
            + QLatin1Char('\n');
    }
    return page;
}

QString terms(std::span<const TermSyntax> terms)
{
    QString page;
    for (const TermSyntax &term : terms)
        page += QStringLiteral(".TP\n.B %1\n%2\n").arg(roff(syntaxText(term.term)), roff(syntaxText(term.text)));
    return page;
}

} // namespace

QString manualPage(QString page, const QString &version, const QString &date)
{
    const std::pair<const char *, QString> fields[] = {
        {"@VERSION@", version},  {"@DATE@", date},
        {"@SYNOPSIS@\n", synopses()}, {"@COMMANDS@\n", commands()},
        {"@OPTIONS@\n", options()}, {"@EXIT_STATUS@\n", terms(exitStatusSyntax())},
        {"@ENVIRONMENT@\n", terms(environmentSyntax())},
    };
    for (const auto &[placeholder, value] : fields)
        page.replace(QLatin1String(placeholder), value);
    return page;
}
