#include "platform/program_directory.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace tarvelle {

QString DefaultProgramDirectory() {
    QString dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(dir);
    return QDir(dir).absolutePath() + '/';
}

QString BundledDataDirectory() {
    const QString bin = QCoreApplication::applicationDirPath();
    for (const QString& candidate : {bin + "/data", bin + "/../share/tarvelle"}) {
        if (QFileInfo(candidate).isDir()) return QDir(candidate).absolutePath();
    }
    return {};
}

QStringList FillProgramDirectory(const QString& bundled, const QString& programDirectory) {
    QStringList copied;
    if (bundled.isEmpty() || !QFileInfo(bundled).isDir()) return copied;
    const QDir source(bundled);
    QDirIterator it(bundled, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString from = it.next();
        const QString relative = source.relativeFilePath(from);
        // Notes on the sources and the built-in icons are not program data.
        if (relative == "README.md" || relative.startsWith("icons/")) continue;
        const QString to = QDir(programDirectory).filePath(relative);
        if (QFileInfo::exists(to)) continue;
        QDir().mkpath(QFileInfo(to).absolutePath());
        if (QFile::copy(from, to)) {
            QFile::setPermissions(to, QFile::permissions(to) | QFile::WriteOwner);
            copied << relative;
        }
    }
    return copied;
}

} // namespace tarvelle
