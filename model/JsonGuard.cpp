// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/JsonGuard.h"

#include <QCoreApplication>

#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

namespace {

// Events of nlohmann's push parser; every handler returns false to stop at once.
class Checker : public nlohmann::json_sax<nlohmann::json> {
public:
    QString problem;

    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }

    bool start_object(std::size_t) override
    {
        m_keys.emplace_back();
        m_isObject.push_back(true);
        return deepEnough();
    }
    bool key(string_t& name) override
    {
        if (!m_keys.back().insert(name).second) {
            problem = QCoreApplication::translate("JsonGuard",
                                                  "it has the key \"%1\" twice in one object")
                          .arg(QString::fromUtf8(name.data(), qsizetype(name.size())));
            return false;
        }
        return true;
    }
    bool end_object() override
    {
        m_keys.pop_back();
        m_isObject.pop_back();
        return true;
    }
    bool start_array(std::size_t) override
    {
        m_isObject.push_back(false);
        return deepEnough();
    }
    bool end_array() override
    {
        m_isObject.pop_back();
        return true;
    }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override
    {
        problem = QCoreApplication::translate("JsonGuard", "it is not valid JSON");
        return false;
    }

private:
    bool deepEnough()
    {
        if (m_isObject.size() > std::size_t(JsonGuard::maxDepth)) {
            problem = QCoreApplication::translate(
                          "JsonGuard", "it nests arrays and objects deeper than %1 levels")
                          .arg(JsonGuard::maxDepth);
            return false;
        }
        return true;
    }

    std::vector<std::set<std::string>> m_keys;
    std::vector<bool> m_isObject;
};

} // namespace

bool JsonGuard::check(const QByteArray& bytes, QString* error)
{
    // No JSON text holds a NUL byte, but the parser takes one as the end of the input and
    // would ignore whatever follows it.
    if (bytes.contains('\0')) {
        if (error) {
            *error = QCoreApplication::translate("JsonGuard", "it is not valid JSON");
        }
        return false;
    }
    Checker checker;
    bool ok = false;
    try {
        ok = nlohmann::json::sax_parse(bytes.cbegin(), bytes.cend(), &checker);
    } catch (const nlohmann::json::exception&) {
        checker.problem = QCoreApplication::translate("JsonGuard", "it is not valid JSON");
        ok = false;
    }
    if (!ok && error) {
        *error = checker.problem.isEmpty()
                     ? QCoreApplication::translate("JsonGuard", "it is not valid JSON")
                     : checker.problem;
    }
    return ok;
}
