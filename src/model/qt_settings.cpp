#include "model/qt_settings.h"

#include <QSettings>

namespace tt {

namespace {
class UserSettings : public SettingsPort {
  public:
    UserSettings()
        : store_(QSettings::NativeFormat, QSettings::UserScope, "TamberlinTally",
                 "TamberlinTally") {}

    std::optional<std::string> Get(const std::string& key) override {
        QVariant v = store_.value(Key(key));
        if (!v.isValid()) return std::nullopt;
        return v.toString().toStdString();
    }
    void Set(const std::string& key, const std::string& value) override {
        store_.setValue(Key(key), QString::fromStdString(value));
        store_.sync();
    }

  private:
    static QString Key(const std::string& key) { return "Settings/" + QString::fromStdString(key); }
    QSettings store_;
};
}  // namespace

std::unique_ptr<SettingsPort> MakeUserSettings() {
    return std::make_unique<UserSettings>();
}

}  // namespace tt
