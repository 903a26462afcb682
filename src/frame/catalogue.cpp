#include "frame/catalogue.h"

#include "platform/settings.h"

namespace frame {

namespace {
constexpr std::string_view lastFileKey = "lastfile";
}

void Catalogue::rememberAsLast() {
    if (!isSet()) return;
    saveLast(m_path);
    readLast();
}

void Catalogue::saveLast(const std::string& path) {
    platform::SaveSetting(lastFileKey, path);
}

void Catalogue::readLast() {
    m_last = platform::GetSetting(lastFileKey);
}

}  // namespace frame
