#include "platform/settings.h"

#include <QSettings>
#include <map>

#include "platform/names.h"

namespace platform {
namespace {

// What could not be stored, for the rest of the run.
std::map<std::string, std::string, std::less<>>& unstored() {
    static std::map<std::string, std::string, std::less<>> values;
    return values;
}

QSettings openStore() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("zarquelin"),
                     QStringLiteral("zarquelin"));
}

QString storedKey(std::string_view key) {
    return QStringLiteral("inicio/") + QString::fromUtf8(key.data(), qsizetype(key.size()));
}

}  // namespace

// A value may be a path with any bytes, so it goes through the same escapes as a file name.
std::string GetSetting(std::string_view key) {
    if (const auto kept = unstored().find(key); kept != unstored().end()) return kept->second;
    return toDiskName(openStore().value(storedKey(key)).toString().toStdString());
}

// Storing flushes the disk twice, which a start with the catalogue of the last time need not wait for.
void SaveSetting(std::string_view key, std::string_view value) {
    QSettings store = openStore();
    const QString place = storedKey(key), text = QString::fromStdString(toStoredName(value));
    if (store.value(place) == text && !unstored().contains(key)) return;
    store.setValue(place, text);
    store.sync();
    if (store.status() == QSettings::NoError)
        unstored().erase(std::string(key));
    else
        unstored().insert_or_assign(std::string(key), std::string(value));
}

}  // namespace platform
