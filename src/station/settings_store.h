// The per-user settings store: text values by section and key, sections and keys matched
// without regard to case. Reading never creates a key; saving writes at once.
#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class QSettings;

namespace tarvelle {

class SettingsStore {
public:
    // The user's store (INI, organisation and application "Tarvelle").
    SettingsStore();
    // A store in the given INI file, for tests and tools.
    explicit SettingsStore(const QString& iniPath);
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    QString get(const QString& section, const QString& key, const QString& defaultValue = {}) const;
    void save(const QString& section, const QString& key, const QString& value);

    QString fileName() const;

    // Values refused as read (absurdly long), once each, for the user to be told.
    const QStringList& Refused() const { return refused_; }
    // Whether saved values reach the disk; false when the file or its folder cannot be written.
    bool Writable() const;

    static constexpr qsizetype kMaxValueLength = 4096; // no setting comes near

private:
    // The stored spelling of a section and key that match without regard to case.
    QString StoredPath(const QString& section, const QString& key) const;
    std::unique_ptr<QSettings> settings_;
    mutable QStringList refused_;
};

} // namespace tarvelle
