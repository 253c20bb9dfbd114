// The modules that the host loads, and those that it loads when it starts.
#pragma once

#include <QStringList>

// True when both, with or without a folder, are the same module: that of the same file name.
bool IsSameModule(const QString& a, const QString& b);

class HostModules {
public:
    // In the order in which they are loaded; kept in the settings.
    QStringList AtStart() const;
    void SetAtStart(const QString& name, bool atStart);

    // Loads every one of them; what fails leaves a trace line and does not hold up the others.
    void LoadAtStart();
    // Each as acrxLoadModule and acrxUnloadModule; the host uses a module once.
    bool Load(const QString& name);
    bool Unload(const QString& name);
    // The last loaded first.
    void UnloadAll();
    bool IsLoaded(const QString& name) const;
    bool IsAtStart(const QString& name) const;

private:
    QStringList m_loaded;
};
