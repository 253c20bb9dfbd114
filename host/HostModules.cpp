#include "host/HostModules.h"

#include <algorithm>

#include <QSettings>

#include "platform/arx/Modules.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

const QString kKey = QStringLiteral("modulesAtStart");

bool Holds(const QStringList& names, const QString& name)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const QString& one) { return IsSameModule(one, name); });
}

void Remove(QStringList& names, const QString& name)
{
    names.removeIf([&](const QString& one) { return IsSameModule(one, name); });
}

} // namespace

bool IsSameModule(const QString& a, const QString& b)
{
    return a.section(u'/', -1).compare(b.section(u'/', -1), Qt::CaseInsensitive) == 0;
}

QStringList HostModules::AtStart() const
{
    const QStringList standard = {QStringLiteral("DesignSpecification.arx"),
                                  QStringLiteral("RoadCheck.arx")};
    return QSettings().value(kKey, standard).toStringList();
}

bool HostModules::IsAtStart(const QString& name) const
{
    return Holds(AtStart(), name);
}

void HostModules::SetAtStart(const QString& name, bool atStart)
{
    QStringList names = AtStart();
    if (Holds(names, name) == atStart) return;
    if (atStart)
        names << name;
    else
        Remove(names, name);
    QSettings().setValue(kKey, names);
}

void HostModules::LoadAtStart()
{
    for (const QString& name : AtStart())
        Load(name);
}

bool HostModules::IsLoaded(const QString& name) const
{
    return Holds(m_loaded, name) && IsModuleLoaded(FromQString(name).c_str());
}

bool HostModules::Load(const QString& name)
{
    if (IsLoaded(name)) return true;
    m_loaded << name; // who listens to modules may ask
    if (acrxLoadModule(FromQString(name).c_str(), false, false)) return true;
    Remove(m_loaded, name);
    return false;
}

bool HostModules::Unload(const QString& name)
{
    if (!IsLoaded(name) || !acrxUnloadModule(FromQString(name).c_str(), false)) return false;
    Remove(m_loaded, name);
    return true;
}

void HostModules::UnloadAll()
{
    const QStringList loaded = m_loaded;
    for (auto name = loaded.rbegin(); name != loaded.rend(); ++name)
        Unload(*name);
}
