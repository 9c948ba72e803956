// The drawings opened last, kept in the program's state folder.
#pragma once
#include <QStringList>
#include <string>

namespace KxDesktop {

class RecentFiles {
public:
    // An empty folder keeps nothing beyond the process.
    explicit RecentFiles(const std::string& stateFolder);

    // The latest first; those that are gone are left out.
    QStringList Existing() const;
    void Add(const QString& path);

private:
    QString m_file;
    QStringList m_paths;
};

}   // namespace KxDesktop
