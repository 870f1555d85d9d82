#include "app/platform/QtSettingsStore.h"

#include <QVariant>

#include "ui/kit/QtText.h"

namespace quorvi {

QtSettingsStore::QtSettingsStore()
    : file_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Quorvi"),
            QStringLiteral("Quorvi")) {}

QtSettingsStore::QtSettingsStore(const std::filesystem::path& file)
    : file_(QString::fromStdString(file.string()), QSettings::IniFormat) {}

// The place that is there already in any mix of case, else the one as written.
QString QtSettingsStore::PlaceOf(std::string_view key, std::string_view name) const {
    QString place = ToQString(key) + QLatin1Char('/') + ToQString(name);
    place.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QStringList places = file_.allKeys();
    for (const QString& known : places) {
        if (known.compare(place, Qt::CaseInsensitive) == 0) {
            return known;
        }
    }
    return place;
}

std::optional<std::string> QtSettingsStore::ReadText(std::string_view key,
                                                     std::string_view name) const {
    const std::lock_guard lock(mutex_);
    const QVariant value = file_.value(PlaceOf(key, name));
    if (!value.isValid()) {
        return std::nullopt;
    }
    // A text with commas comes back from a file written by hand as a list.
    return FromQString(value.toStringList().join(QLatin1Char(',')));
}

std::optional<std::uint32_t> QtSettingsStore::ReadNumber(std::string_view key,
                                                         std::string_view name) const {
    const std::lock_guard lock(mutex_);
    bool isNumber = false;
    const std::uint32_t value = file_.value(PlaceOf(key, name)).toUInt(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

bool QtSettingsStore::Write(std::string_view key, std::string_view name, const QVariant& value) {
    const std::lock_guard lock(mutex_);
    if (!file_.isWritable()) {
        return false;
    }
    file_.setValue(PlaceOf(key, name), value);
    return true;
}

bool QtSettingsStore::WriteText(std::string_view key, std::string_view name,
                                std::string_view text) {
    return Write(key, name, ToQString(text));
}

bool QtSettingsStore::WriteNumber(std::string_view key, std::string_view name,
                                  std::uint32_t value) {
    return Write(key, name, value);
}

void QtSettingsStore::Delete(std::string_view key, std::string_view name) {
    const std::lock_guard lock(mutex_);
    file_.remove(PlaceOf(key, name));
}

void QtSettingsStore::Flush() {
    const std::lock_guard lock(mutex_);
    file_.sync();
}

}  // namespace quorvi
