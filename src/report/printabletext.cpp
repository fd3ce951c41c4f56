#include "printabletext.h"

namespace {

// Marks that reorder the text around them: a name could show as another.
bool isDirectionControl(char16_t code)
{
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069);
}

} // namespace

QString escapedControls(const QString &text)
{
    QString shown;
    shown.reserve(text.size());
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        const QChar::Category category = c.category();
        if (code == u'\n')
            shown += QLatin1String("\\n");
        else if (code == u'\t')
            shown += QLatin1String("\\t");
        else if (code == u'\r')
            shown += QLatin1String("\\r");
        else if (category == QChar::Other_Control && code < 0x100)
            shown += QLatin1String("\\x") + QString::number(code, 16).toUpper().rightJustified(2, u'0');
        else if (category == QChar::Other_Control || category == QChar::Separator_Line
                 || category == QChar::Separator_Paragraph || isDirectionControl(code))
            shown += QLatin1String("\\u") + QString::number(code, 16).toUpper().rightJustified(4, u'0');
        else
            shown += c;
    }
    return shown;
}

QString reportTime(const QDateTime &moment)
{
    return moment.toOffsetFromUtc(moment.offsetFromUtc()).toString(Qt::ISODateWithMs);
}
