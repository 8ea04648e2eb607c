#include "log/observer_log.h"

#include "core/date_value.h"
#include "core/text_forms.h"
#include "formats/error_text.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>

namespace tarvelle {

namespace {

constexpr const char* kCrLf = "\r\n";

QString Q(const std::string& s) { return QString::fromStdString(s); }

LogFailure Numbered(int n) { return {n, Q(ErrorText(n))}; }

// The number for a file that cannot be opened: its folder is missing, or it may not be used.
LogFailure OpenFailure(const QString& path, QFileDevice::FileError e) {
    if (!QFileInfo(path).absoluteDir().exists()) return Numbered(76);
    if (e == QFileDevice::OpenError && !QFileInfo::exists(path)) return Numbered(53);
    return Numbered(70);
}

} // namespace

double LogMoment(double clockLocal, double obsTZ, bool useUT) {
    return useUT ? clockLocal - obsTZ / 24.0 : clockLocal;
}

QString ShortDate(double moment) {
    const CalendarFields f = FieldsOf(moment);
    return QLocale::system().toString(QDate(f.year, f.month, f.day), QLocale::ShortFormat);
}

QString GetTimeStamp(double moment, const QString& shortDate, bool useUT) {
    return "<" + Q(FormatDateMask(moment, "hh:nn:ss")) + "  " + shortDate + (useUT ? " UT>" : ">");
}

QString QuickLine(const QString& stamp, QuickKind kind, int strength) {
    static const char* const kStrength[] = {"Weak  ", "Medium  ", "Strong  "};
    const char* what = kind == QuickKind::LBurst   ? "L-Burst"
                       : kind == QuickKind::SBurst ? "S-Burst"
                                                   : "Burst of Undetermined Type";
    return stamp + "   " + kStrength[strength] + what + kCrLf;
}

QString TimeStampLines(const QString& stamp) { return kCrLf + stamp + kCrLf; }

QString JupAltAzLines(const QString& stamp, double jupAlt, double jupAz) {
    return kCrLf + stamp + "     Jup Alt: " + Q(FormatNumberMask(jupAlt, "00.0")) + "   Az: " +
           Q(FormatNumberMask(jupAz, "000.0")) + kCrLf;
}

QString CMLIoPhaseLines(const QString& stamp, float cml, float ioPhase) {
    return kCrLf + stamp + "     CML: " + Q(StrForm(cml)) + "   Io Phase: " +
           Q(FormatNumberMask(static_cast<double>(ioPhase), "000.00")) + kCrLf;
}

QString ProposedLogName(double logStart) { return Q(FormatDateMask(logStart, "yyMMDDhhnn")) + "JupLog.txt"; }

std::optional<LogFailure> LoadLogText(const QString& path, QString& text) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return OpenFailure(path, file.error());
    const QByteArray all = file.readAll();
    if (file.error() != QFileDevice::NoError) return Numbered(57);
    // A line ends at CR LF, a lone CR or a lone LF; each comes back as CR LF.
    for (const std::string& line : SplitTextLines(std::string_view(all.constData(), static_cast<size_t>(all.size()))))
        text += QString::fromLatin1(line.data(), static_cast<qsizetype>(line.size())) + kCrLf;
    return std::nullopt;
}

std::optional<LogFailure> SaveLogText(const QString& path, const QString& text) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return OpenFailure(path, file.error());
    const QByteArray bytes = text.toLatin1();
    if (file.write(bytes) != bytes.size() || !file.commit()) return Numbered(57);
    return std::nullopt;
}

} // namespace tarvelle
