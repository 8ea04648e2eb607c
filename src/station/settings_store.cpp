#include "station/settings_store.h"

#include <QFileInfo>
#include <QSettings>

namespace tarvelle {

namespace {

QString Matching(const QStringList& names, const QString& wanted) {
    for (const QString& name : names)
        if (name.compare(wanted, Qt::CaseInsensitive) == 0) return name;
    return {};
}

} // namespace

SettingsStore::SettingsStore()
    : settings_(
          std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, "Tarvelle", "Tarvelle")) {}

SettingsStore::SettingsStore(const QString& iniPath)
    : settings_(std::make_unique<QSettings>(iniPath, QSettings::IniFormat)) {}

SettingsStore::~SettingsStore() = default;

QString SettingsStore::StoredPath(const QString& section, const QString& key) const {
    const QString storedSection = Matching(settings_->childGroups(), section);
    if (storedSection.isEmpty()) return {};
    settings_->beginGroup(storedSection);
    const QString storedKey = Matching(settings_->childKeys(), key);
    settings_->endGroup();
    return storedKey.isEmpty() ? QString() : storedSection + '/' + storedKey;
}

QString SettingsStore::get(const QString& section, const QString& key, const QString& defaultValue) const {
    const QString path = StoredPath(section, key);
    if (path.isEmpty()) return defaultValue;
    QString value = settings_->value(path).toString();
    if (value.size() > kMaxValueLength) {
        const QString name = section + "/" + key;
        if (!refused_.contains(name)) refused_ << name;
        return defaultValue;
    }
    return value;
}

void SettingsStore::save(const QString& section, const QString& key, const QString& value) {
    QString path = StoredPath(section, key);
    // Only a change reaches the disk.
    if (!path.isEmpty() && settings_->value(path).toString() == value) return;
    if (path.isEmpty()) {
        const QString storedSection = Matching(settings_->childGroups(), section);
        path = (storedSection.isEmpty() ? section : storedSection) + '/' + key;
    }
    settings_->setValue(path, value);
    settings_->sync();
}

bool SettingsStore::Writable() const {
    settings_->sync();
    if (settings_->status() != QSettings::NoError) return false;
    const QFileInfo file(settings_->fileName());
    if (file.exists()) return file.isFile() && file.isWritable();
    const QFileInfo folder(file.absolutePath());
    return !folder.exists() || (folder.isDir() && folder.isWritable());
}

QString SettingsStore::fileName() const {
    return settings_->fileName();
}

} // namespace tarvelle
