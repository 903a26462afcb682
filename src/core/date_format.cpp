#include "core/date_format.h"

#include <charconv>
#include <chrono>
#include <cmath>

#include "core/serial_date.h"

namespace core {

struct DateFormat::Moment {
    int year, month, day, hour, minute, second;
};

namespace {

constexpr double greatestSerial =
    10'000'000;  // about the year 29,000; beyond it a number says more than a date

void appendNumber(std::string& out, int number, int width) {
    char digits[16];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, number);
    for (auto length = end - digits; length < width; ++length) out += '0';
    out.append(digits, end);
}

// Locales write the short date with a two-digit year and the short time without seconds.
QString withFullYear(QString pattern) {
    if (!pattern.contains(QStringLiteral("yyyy")))
        pattern.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    return pattern;
}

QString withSeconds(QString pattern) {
    if (pattern.contains(u's')) return pattern;
    // The seconds repeat the sign that stands before the minutes: "9.41" becomes "9.41.07".
    const qsizetype minutes = pattern.indexOf(u'm');
    const bool plainSign = minutes > 0 && pattern[minutes - 1].isPunct() && pattern[minutes - 1] != u'\'';
    const QString sign = plainSign ? QString(pattern[minutes - 1]) : QStringLiteral(":");
    return pattern.insert(pattern.lastIndexOf(u'm') + 1, sign + QStringLiteral("ss"));
}

}  // namespace

DateFormat::DateFormat(const QLocale& locale) {
    if (locale.language() == QLocale::C) {
        m_date = takenApart(QStringLiteral("yyyy-MM-dd"));
        m_time = takenApart(QStringLiteral("HH:mm:ss"));
    } else {
        m_date = takenApart(withFullYear(locale.dateFormat(QLocale::ShortFormat)));
        m_time = takenApart(withSeconds(locale.timeFormat(QLocale::ShortFormat)));
    }
    for (int month = 1; month <= 12; ++month) {
        m_shortMonths.push_back(locale.monthName(month, QLocale::ShortFormat).toStdString());
        m_longMonths.push_back(locale.monthName(month, QLocale::LongFormat).toStdString());
    }
    m_am = locale.amText().toStdString();
    m_pm = locale.pmText().toStdString();
}

DateFormat::Token DateFormat::tokenOf(const QString& run, bool twelveHours) {
    const int width = int(run.size());
    switch (run[0].unicode()) {
        case u'd':
            return {Piece::Day, width, {}};
        case u'M':
            return {width > 2 ? Piece::MonthName : Piece::MonthNumber, width, {}};
        case u'y':
            return {Piece::Year, width, {}};
        case u'H':
            return {Piece::Hour24, width, {}};
        case u'h':
            return {twelveHours ? Piece::Hour12 : Piece::Hour24, width, {}};
        case u'm':
            return {Piece::Minute, width, {}};
        case u's':
            return {Piece::Second, width, {}};
        case u'a':
        case u'A':
            return {Piece::AmPm, width, {}};
        default:
            return {Piece::Literal, 0, run.toStdString()};
    }
}

// Arabic locales put marks for text from the right between the numbers. In a line from the left, as all of
// ours are, these would turn the date about.
std::vector<DateFormat::Token> DateFormat::takenApart(QString pattern) {
    for (const char16_t mark : {u'\u061C', u'\u200E', u'\u200F'}) pattern.remove(QChar(mark));
    std::vector<Token> tokens;
    const bool twelveHours = pattern.contains(u'a', Qt::CaseInsensitive);
    bool quoted = false;
    for (qsizetype i = 0; i < pattern.size();) {
        if (pattern[i] == u'\'') {
            quoted = !quoted;
            ++i;
            continue;
        }
        qsizetype end = i + 1;
        if (quoted) {
            tokens.push_back({Piece::Literal, 0, pattern.mid(i, 1).toStdString()});
        } else {
            while (end < pattern.size() && pattern[end] == pattern[i]) ++end;
            tokens.push_back(tokenOf(pattern.mid(i, end - i), twelveHours));
            const bool namesTwo = tokens.back().piece == Piece::AmPm && end < pattern.size();
            if (namesTwo && pattern[end].toLower() == u'p') ++end;
        }
        i = end;
    }
    return tokens;
}

void DateFormat::append(std::string& out, const Token& token, const Moment& moment) const {
    switch (token.piece) {
        case Piece::Literal:
            out += token.literal;
            break;
        case Piece::Day:
            appendNumber(out, moment.day, token.width);
            break;
        case Piece::MonthNumber:
            appendNumber(out, moment.month, token.width);
            break;
        case Piece::MonthName:
            out += (token.width == 3 ? m_shortMonths : m_longMonths)[std::size_t(moment.month - 1)];
            break;
        case Piece::Year:
            appendNumber(out, moment.year, token.width);
            break;
        case Piece::Hour24:
            appendNumber(out, moment.hour, token.width);
            break;
        case Piece::Hour12:
            appendNumber(out, (moment.hour + 11) % 12 + 1, token.width);
            break;
        case Piece::Minute:
            appendNumber(out, moment.minute, token.width);
            break;
        case Piece::Second:
            appendNumber(out, moment.second, token.width);
            break;
        case Piece::AmPm:
            out += moment.hour < 12 ? m_am : m_pm;
            break;
    }
}

std::string DateFormat::text(double serial) const {
    if (!(std::abs(serial) < greatestSerial)) return pointedDecimalText(serial);
    using namespace std::chrono;
    const std::int64_t seconds = std::llround(serial * secondsInDay);
    const sys_seconds moment = sys_days{1899y / December / 30} + std::chrono::seconds{seconds};
    const sys_days date = floor<days>(moment);
    const year_month_day ymd{date};
    const int time = int((moment - date).count());

    const Moment parts{int(ymd.year()),          int(unsigned(ymd.month())),
                       int(unsigned(ymd.day())), time / 3600,
                       time / 60 % 60,           time % 60};
    std::string out;
    out.reserve(24);
    for (const Token& token : m_date) append(out, token, parts);
    if (time == 0) return out;
    out += ' ';
    for (const Token& token : m_time) append(out, token, parts);
    return out;
}

}  // namespace core
