#pragma once

#include <string>

/// @file
/// Users of a PostgreSQL store who may not do everything, as data/schema/postgresql-roles.sql
/// makes them.

namespace zntopo::test {

/// Runs the script of the roles on a store, by psql as a site does. Throws std::runtime_error with
/// what psql said if it fails. May run at the same time on other stores of the server, and again.
void makePostgresRoles(const std::string& store);

/// Runs a text in psql, in which several statements are no obstacle. True if all of it succeeded.
bool psqlAccepts(const std::string& store, const std::string& sql);

/// A login of its own on the test's server for the life of this object.
class PostgresLogin {
 public:
  /// A member of the role; of none for an empty text.
  explicit PostgresLogin(const std::string& role);
  ~PostgresLogin();
  PostgresLogin(const PostgresLogin&) = delete;
  PostgresLogin& operator=(const PostgresLogin&) = delete;

  /// The connection string of a store with this login in it.
  std::string store(const std::string& ownersStore) const;

 private:
  std::string name_;
};

}  // namespace zntopo::test
