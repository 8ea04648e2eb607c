// The program directory: where the data files live and where the program writes its own
// files. It is the per-user data folder, filled from the bundled data at start.
#pragma once

#include <QString>
#include <QStringList>

namespace tarvelle {

// The per-user data folder (~/.local/share/Tarvelle), with a trailing separator.
QString DefaultProgramDirectory();

// The bundled data folder: next to the binary in a build tree ("data"), or share/tarvelle of
// the installation. Empty if neither exists.
QString BundledDataDirectory();

// Copies every bundled file that the program directory lacks, folders included; a file that
// is already there, changed by the user or not, is left alone. Returns the files copied.
QStringList FillProgramDirectory(const QString& bundled, const QString& programDirectory);

} // namespace tarvelle
