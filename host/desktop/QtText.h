// Texts between the platform and the toolkit.
#pragma once
#include <QString>
#include <string>
#include <string_view>

namespace KxDesktop {

inline QString ToQt(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), qsizetype(text.size()));
}

inline std::wstring FromQt(const QString& text)
{
    return text.toStdWString();
}

}   // namespace KxDesktop
