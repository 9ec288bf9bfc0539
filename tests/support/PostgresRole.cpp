#include "tests/support/PostgresRole.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "tests/support/Places.h"
#include "tests/support/TestEngine.h"

namespace zntopo::test {

namespace {

const std::string kUser = "Username=";

/// What a part of a connection string says: "Database=" gives the name of the database.
std::string partOf(const std::string& store, const std::string& name) {
  const std::size_t begin = store.find(name);
  if (begin == std::string::npos) throw std::runtime_error("no " + name + " in " + store);
  const std::size_t value = begin + name.size();
  return store.substr(value, store.find(';', value) - value);
}

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

/// Runs psql; false if it failed. What it said goes to "told".
bool psql(const std::string& store, const std::string& option, const std::string& value,
          std::string& told) {
  const std::string command =
      "psql -X -q -v ON_ERROR_STOP=1 -h " + quoted(partOf(store, "Servername=")) + " -p " +
      quoted(partOf(store, "Port=")) + " -U " + quoted(partOf(store, kUser)) + " -d " +
      quoted(partOf(store, "Database=")) + " " + option + " " + quoted(value) + " 2>&1";
  FILE* const pipe = popen(command.c_str(), "r");
  if (!pipe) throw std::runtime_error("can't run " + command);
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) told += static_cast<char>(c);
  return pclose(pipe) == 0;
}

std::string uniqueLogin() {
  static std::atomic<int> count = 0;
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  return "login_" + std::to_string(getpid()) + "_" + std::to_string(now) + "_" +
         std::to_string(++count);
}

}  // namespace

void makePostgresRoles(const std::string& store) {
  std::string told;
  if (!psql(store, "-f", inSourceTree("data/schema/postgresql-roles.sql"), told)) {
    throw std::runtime_error("the roles: " + told);
  }
}

bool psqlAccepts(const std::string& store, const std::string& sql) {
  std::string told;
  return psql(store, "-c", sql, told);
}

PostgresLogin::PostgresLogin(const std::string& role) : name_(uniqueLogin()) {
  executeOn(postgresStore("postgres"),
            "create role " + name_ + " login" + (role.empty() ? "" : " in role " + role));
}

PostgresLogin::~PostgresLogin() {
  try {
    executeOn(postgresStore("postgres"), "drop role " + name_);
  } catch (const std::exception& error) {
    ADD_FAILURE() << "The test's login is left behind: " << error.what();
  }
}

std::string PostgresLogin::store(const std::string& ownersStore) const {
  std::string result = ownersStore;
  const std::size_t value = result.find(kUser) + kUser.size();
  return result.replace(value, result.find(';', value) - value, name_);
}

}  // namespace zntopo::test
