#include "fakeserverstate.h"

namespace {

bool isSystemDatabase(const QString &key)
{
    return key == QLatin1String("master") || key == QLatin1String("tempdb");
}

} // namespace

FakeServerState::FakeServerState()
{
    addDatabase(QStringLiteral("master"));
    addDatabase(QStringLiteral("tempdb"));
}

FakeDatabase &FakeServerState::database(const QString &name)
{
    const QString key = name.toLower();
    m_dropped.remove(key);
    return m_databases.try_emplace(key, name).first->second;
}

const FakeDatabase *FakeServerState::findDatabase(const QString &name) const
{
    const auto found = m_databases.find(name.toLower());
    return found == m_databases.end() ? nullptr : &found->second;
}

bool FakeServerState::hasDatabase(const QString &name) const
{
    return findDatabase(name) != nullptr;
}

void FakeServerState::addDatabase(const QString &name)
{
    database(name);
}

void FakeServerState::dropDatabase(const QString &name)
{
    const QString key = name.toLower();
    if (isSystemDatabase(key))
        return;
    m_databases.erase(key);
    m_dropped.insert(key);
}

QStringList FakeServerState::databases() const
{
    QStringList names;
    for (const auto &[key, database] : m_databases)
        names.append(database.name());
    return names;
}

DbStatus FakeServerState::openCatalog(const QString &name)
{
    if (refuseEveryOpen) {
        return DbStatus::failure(
            QStringLiteral("[DBNETLIB][ConnectionOpen (Connect()).]SQL Server does not exist or access denied."), 17);
    }
    if (m_dropped.contains(name.toLower())) {
        return DbStatus::failure(
            QStringLiteral("Cannot open database \"%1\" requested by the login. The login failed.").arg(name), 4060);
    }
    database(name);
    return DbStatus::success();
}

DbStatus FakeServerState::createDatabase(const QString &name)
{
    if (name.isEmpty()) {
        return DbStatus::failure(QStringLiteral("An object or column name is missing or empty. For SELECT INTO "
                                                "statements, verify each column has a name. For other statements, "
                                                "look for empty alias names. Aliases defined as \"\" or [] are not "
                                                "allowed. Change the alias to a valid name."),
                                 1038);
    }
    if (hasDatabase(name)) {
        return DbStatus::failure(
            QStringLiteral("Database '%1' already exists. Choose a different database name.").arg(name), 1801);
    }
    database(name);
    return DbStatus::success();
}

QStringList FakeServerState::failedStatements() const
{
    QStringList texts;
    for (const FakeLoggedStatement &statement : m_log) {
        if (!statement.ok)
            texts.append(statement.text);
    }
    return texts;
}
