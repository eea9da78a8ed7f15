#include "shell/forms/form_registry.h"

#include <map>

namespace tt::gui {

namespace {
std::map<std::string, FormMaker>& Registry() {
    static std::map<std::string, FormMaker> r;
    return r;
}
}  // namespace

void RegisterForm(const std::string& name, FormMaker make) {
    Registry()[name] = std::move(make);
}

bool IsFormRegistered(const std::string& name) {
    return Registry().count(name) > 0;
}

std::vector<std::string> RegisteredForms() {
    std::vector<std::string> names;
    for (const auto& entry : Registry()) names.push_back(entry.first);
    return names;
}

QWidget* MakeForm(const std::string& name, QWidget* parent) {
    auto it = Registry().find(name);
    return it == Registry().end() ? nullptr : it->second(parent);
}

}  // namespace tt::gui
