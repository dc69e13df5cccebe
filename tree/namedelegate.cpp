#include "tree/namedelegate.h"

namespace {
const QChar lineBreakSign(0x00b6);
const QChar otherSign(0x00b7);

bool isWithin(QChar character, ushort first, ushort last)
{
    return character.unicode() >= first && character.unicode() <= last;
}

bool breaksLine(QChar character)
{
    return character == QLatin1Char('\n') || character == QLatin1Char('\r') ||
           character == QChar(0x0085) || isWithin(character, 0x2028, 0x2029);
}

/** Whether @p character has no look of its own, and changes that of others at most. */
bool onlySteers(QChar character)
{
    return isWithin(character, 0x0000, 0x001f) || character == QChar(0x007f) ||
           isWithin(character, 0x200e, 0x200f) || isWithin(character, 0x202a, 0x202e) ||
           isWithin(character, 0x2066, 0x2069);
}
} // namespace

QString NameDelegate::displayText(const QVariant &value, const QLocale &) const
{
    QString text = value.toString();
    for (QChar *character = text.data(); character != text.constData() + text.size(); ++character) {
        if (breaksLine(*character))
            *character = lineBreakSign;
        else if (onlySteers(*character))
            *character = otherSign;
    }
    return text;
}
