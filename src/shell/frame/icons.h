#pragma once

#include <QIcon>

namespace shell {

constexpr int pixels(int twips) {
    return twips / 15;
}

inline QIcon pictureIcon(int picture) {
    return QIcon::fromTheme(picture == 2 || picture == 3 ? QStringLiteral("folder")
                                                         : QStringLiteral("text-x-generic"));
}

inline QIcon actionIcon(const QString& name) {
    return QIcon::fromTheme(name);
}

}  // namespace shell
