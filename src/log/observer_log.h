// The observer log's lines and files. The log is plain 8-bit text with CR LF line ends and no
// structure: these functions build the lines the window inserts and move the text to and
// from files. Saving goes through a temporary file that replaces the old one only when it is
// whole, so a failed or interrupted save leaves the old file as it was.
#pragma once

#include <QString>

#include <optional>

namespace tarvelle {

// The moment of a stamp: the computer's clock, minus the zone hours when times are GMT.
double LogMoment(double clockLocal, double obsTZ, bool useUT);
// "<hh:nn:ss  date>", or " UT>" at the end when times are GMT; shortDate is the date in the
// computer's short form.
QString GetTimeStamp(double moment, const QString& shortDate, bool useUT);
// The computer's short date form of a date value.
QString ShortDate(double moment);

enum class QuickKind { Undetermined, LBurst, SBurst };
// A quick button's line: strength 0 weak, 1 medium, 2 strong.
QString QuickLine(const QString& stamp, QuickKind kind, int strength);
QString TimeStampLines(const QString& stamp);
QString JupAltAzLines(const QString& stamp, double jupAlt, double jupAz);
QString CMLIoPhaseLines(const QString& stamp, float cml, float ioPhase);

// The name proposed for a new log, from the moment it began: "yyMMddhhnnJupLog.txt".
QString ProposedLogName(double logStart);

// A failure of a load or save: the number and the sentence.
struct LogFailure {
    int number = 0;
    QString description;
};

// Reads a log line by line, each line given back its CR LF. On a failure, text holds what was
// read up to it.
std::optional<LogFailure> LoadLogText(const QString& path, QString& text);
// Writes the text exactly, atomically.
std::optional<LogFailure> SaveLogText(const QString& path, const QString& text);

} // namespace tarvelle
