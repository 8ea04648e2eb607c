// The settings store: text values, sections and keys without regard to case.
#include "station/settings_store.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace tarvelle;

TEST(SettingsStore, DefaultsSectionsAndKeysIgnoreCase) {
    QTemporaryDir dir;
    const QString ini = dir.filePath("t.ini");
    {
        SettingsStore store(ini);
        EXPECT_EQ(store.get("Startup", "UseGMT", "True"), "True");
        EXPECT_FALSE(QFile::exists(ini)); // nothing written by reading
        store.save("Settings", "DFormat", "2");
        EXPECT_EQ(store.get("settings", "dformat", "0"), "2");
        store.save("SETTINGS", "dFormat", "1"); // replaces, does not add a second entry
        EXPECT_EQ(store.get("Settings", "DFormat"), "1");
        store.save("Startup", "SystemClockTZ", " 5.5");
    }
    SettingsStore again(ini); // written at once, read back by a new store
    EXPECT_EQ(again.get("settings", "DFORMAT"), "1");
    EXPECT_EQ(again.get("startup", "systemclocktz"), " 5.5"); // text kept as it was, blank and all
    QFile file(ini);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString content = QString::fromUtf8(file.readAll());
    EXPECT_EQ(content.count("DFormat", Qt::CaseInsensitive), 1);
}
