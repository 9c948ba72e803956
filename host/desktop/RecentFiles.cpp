#include "RecentFiles.h"
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

namespace KxDesktop {

namespace {

constexpr qsizetype kMost = 10;

}   // namespace

RecentFiles::RecentFiles(const std::string& stateFolder)
{
    if (stateFolder.empty())
        return;
    m_file = QString::fromStdString(stateFolder) + QStringLiteral("/recent-drawings");
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QTextStream in(&file);
    while (!in.atEnd() && m_paths.size() < kMost)
        m_paths.append(in.readLine());
}

QStringList RecentFiles::Existing() const
{
    QStringList existing;
    for (const QString& path : m_paths)
        if (QFileInfo::exists(path))
            existing.append(path);
    return existing;
}

void RecentFiles::Add(const QString& path)
{
    if (path.isEmpty() || (!m_paths.isEmpty() && m_paths.front() == path))
        return;
    m_paths.removeAll(path);
    m_paths.prepend(path);
    m_paths = m_paths.mid(0, kMost);
    QSaveFile file(m_file);
    if (m_file.isEmpty() || !file.open(QIODevice::WriteOnly))
        return;
    QTextStream out(&file);
    for (const QString& each : m_paths)
        out << each << '\n';
    out.flush();
    file.commit();
}

}   // namespace KxDesktop
