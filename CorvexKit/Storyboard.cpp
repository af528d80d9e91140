#include "CorvexKit/Storyboard.h"

#include <QRegularExpression>
#include <QStringList>

#include <utility>

namespace tamba {
namespace {

constexpr int longestWait = 600;  // seconds
constexpr int smallest = 160, largest = 3840;

constexpr std::pair<const char*, StoryStep::Kind> words[] = {
    {"go", StoryStep::Kind::go},     {"click", StoryStep::Kind::click},    {"choose", StoryStep::Kind::choose},
    {"type", StoryStep::Kind::type}, {"press", StoryStep::Kind::press},    {"drop", StoryStep::Kind::drop},
    {"wait", StoryStep::Kind::wait}, {"caption", StoryStep::Kind::caption}};

std::optional<StoryStep::Kind> kindOf(const QString& word) {
    for (const auto& [name, kind] : words)
        if (word == QLatin1String(name)) return kind;
    return {};
}

[[noreturn]] void refuse(int line, const QString& sentence) {
    throw stepError(DemoError::Code::storyboard, line, sentence);
}

QSize sizeOf(const QString& text, int line) {
    static const QRegularExpression form(QStringLiteral("^(\\d{3,4})\\s*[x×]\\s*(\\d{3,4})$"));
    const auto match = form.match(text);
    const int width = match.captured(1).toInt(), height = match.captured(2).toInt();
    if (width < smallest || width > largest || height < smallest || height > largest)
        refuse(line,
               QStringLiteral("a size is written like 1280x800, each side from %1 to %2.").arg(smallest).arg(largest));
    return {width & ~1, height & ~1};
}

QDate dayOf(const QString& text, int line) {
    const QDate day = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    if (!day.isValid()) refuse(line, QStringLiteral("a day is written like 2026-11-21."));
    return day;
}

int millisecondsOf(const QString& text, int line) {
    bool good = false;
    const double seconds = text.toDouble(&good);
    if (!good || !(seconds > 0) || seconds > longestWait)
        refuse(line, QStringLiteral("say how many seconds to wait, such as 1.5 and at most %1, or “until idle”.")
                         .arg(longestWait));
    return qRound(seconds * 1000);
}

QKeySequence keysOf(const QString& text, int line) {
    const QKeySequence keys(text, QKeySequence::PortableText);
    if (keys.count() != 1 || keys[0].key() == Qt::Key_unknown)
        refuse(line, QStringLiteral("“%1” is no key; write keys like Ctrl+K or Return.").arg(text));
    return keys;
}

}  // namespace

DemoError stepError(DemoError::Code code, int line, const QString& sentence) {
    return {code, QStringLiteral("Line %1: %2").arg(line).arg(sentence)};
}

Storyboard Storyboard::parse(const QString& text) {
    Storyboard board;
    int line = 0;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& whole : lines) {
        ++line;
        const QString words = whole.trimmed();
        if (words.isEmpty() || words.startsWith(QLatin1Char('#'))) continue;
        const QString word = words.section(QLatin1Char(' '), 0, 0);
        const QString rest = words.mid(word.size()).trimmed();
        if (word == QLatin1String("size") || word == QLatin1String("today")) {
            if (!board.steps.empty()) refuse(line, QStringLiteral("“%1” stands before the first step.").arg(word));
            if (word == QLatin1String("size"))
                board.size = sizeOf(rest, line);
            else
                board.today = dayOf(rest, line);
            continue;
        }
        const auto kind = kindOf(word);
        if (!kind)
            refuse(line,
                   QStringLiteral("“%1” is no step. A step begins with go, click, choose, type, press, drop, wait "
                                  "or caption.")
                       .arg(word));
        if (rest.isEmpty() && *kind != StoryStep::Kind::caption)
            refuse(line, QStringLiteral("say after “%1” what is meant.").arg(word));
        StoryStep step{*kind, line, rest};
        if (step.kind == StoryStep::Kind::press) step.keys = keysOf(rest, line);
        if (step.kind == StoryStep::Kind::wait) {
            if (rest == QLatin1String("until idle"))
                step.kind = StoryStep::Kind::waitUntilIdle;
            else
                step.milliseconds = millisecondsOf(rest, line);
        }
        board.steps.push_back(std::move(step));
    }
    if (board.steps.empty())
        throw DemoError(DemoError::Code::storyboard, QStringLiteral("The storyboard has no steps."));
    return board;
}

}  // namespace tamba
