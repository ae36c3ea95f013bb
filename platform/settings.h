// What is kept from session to session.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace verlink::platform {

/// Names with texts, in one file of the desktop's folder for settings. Nobody is told of a file that cannot be read or
/// written: what it would have held is then as in the first session. Names are letters, digits and points.
class Settings {
   public:
    /// Forgets everything and reads the file. One that is missing or no file of settings counts as an empty one, and so
    /// does a line that is none; without a folder nothing is read or written at all.
    void Open(const std::string& folder);

    /// Empty for a name that nothing is kept under.
    std::string Text(const std::string& name) const;
    /// Nothing for a text that is no whole number.
    std::optional<long> Number(const std::string& name) const;
    std::vector<std::string> List(const std::string& name) const;
    bool Has(const std::string& name) const { return kept_.contains(name); }

    void Put(const std::string& name, const std::string& text);
    void Put(const std::string& name, const std::vector<std::string>& list);

    /// Writes what was put since, into what the file holds by now: another process keeps its settings there too.
    void Save();
    /// Takes over what another process has written, but for what was put here since.
    void Look_Again();

   private:
    using Kept = std::map<std::string, std::string>;
    static Kept Read(const std::string& path);

    std::string folder_, path_;
    Kept kept_;
    std::set<std::string> changed_;
};

/// The one that the program goes by.
Settings& The_Settings();

}  // namespace verlink::platform
