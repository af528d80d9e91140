#include "CorvexKit/CaptionLayout.h"

namespace tamba::CaptionLayout {
namespace {

using WidthOf = std::function<int(const QString&)>;

QStringList broken(const QString& words, int width, const WidthOf& widthOf) {
    QStringList lines;
    for (const QString& word : words.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString longer = lines.isEmpty() ? word : lines.back() + QLatin1Char(' ') + word;
        if (!lines.isEmpty() && widthOf(longer) <= width)
            lines.back() = longer;
        else
            lines << word;
    }
    return lines;
}

QString cut(QString line, int width, const WidthOf& widthOf) {
    while (!line.isEmpty() && widthOf(line + QChar(u'…')) > width) line.chop(1);
    return line.trimmed() + QChar(u'…');
}

}  // namespace

QStringList lines(const QString& words, int width, const WidthOf& widthOf) {
    QStringList result = broken(words, width, widthOf);
    // The narrowest width that needs no more lines leaves no single word behind.
    int low = 0, high = width;
    while (high - low > 4) {
        const int middle = (low + high) / 2;
        const QStringList narrower = broken(words, middle, widthOf);
        bool fits = narrower.size() == result.size();
        for (const QString& line : narrower) fits = fits && widthOf(line) <= middle;
        (fits ? high : low) = middle;
    }
    if (high < width) result = broken(words, high, widthOf);
    if (result.size() > mostLines) {
        result = broken(words, width, widthOf);
        const QString last = result.mid(mostLines - 1).join(QLatin1Char(' '));
        result = result.mid(0, mostLines - 1) << last;
    }
    for (QString& line : result)
        if (widthOf(line) > width) line = cut(line, width, widthOf);
    return result;
}

}  // namespace tamba::CaptionLayout
