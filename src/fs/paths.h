#pragma once

// Every path that a run knows, those that quorrel-status knows of the system's data, and the zone
// that a run resets to. They are fixed when the programs are built.
namespace quorrel::paths
{

// The system partition, read only.
inline constexpr char system_zoneinfo[] = "/usr/share/zoneinfo.default"; // its zoneinfo tree
inline constexpr char system_icu[] = "/usr/share/icu";                   // its ICU data

// What a run writes.
inline constexpr char data_directory[] = "/var/db/timezone/";
inline constexpr char zoneinfo_link[] = "/var/db/timezone/zoneinfo";   // to the tree in use
inline constexpr char icu_link[] = "/var/db/timezone/icutz";           // to an update's ICU data
inline constexpr char localtime_link[] = "/var/db/timezone/localtime"; // to the local zone's file
inline constexpr char needs_cleanup[] = "/var/db/timezone/needs_cleanup"; // for the update agent
inline constexpr char version_diff_record[] = "/var/db/timezone/TZVersionDiffRecord"; // OLD_NEW

// The zone of a localtime link that had to be reset.
inline constexpr char default_zone[] = "America/Los_Angeles";

// What the update agent installs; never written here.
inline constexpr char latest_update_link[] = "/var/db/timezone/tz_latest"; // to the newest update
inline constexpr char update_directory[] = "/var/db/timezone/tz/"; // holds a directory per update

// In an update's directory, for example /var/db/timezone/tz/2024b.1.0.
inline constexpr char update_zoneinfo[] = "/zoneinfo"; // its zoneinfo tree
inline constexpr char update_icu[] = "/icutz";         // its ICU data, for example icutz44l.dat

// In a zoneinfo tree: its tz release, for example 2024a.
inline constexpr char release_file[] = "/+VERSION";

// In the system partition's ICU directory: the schema of its data, for example 44l.
inline constexpr char icu_format_file[] = "/icutzformat.txt";

// The legacy layout. The path of its zoneinfo tree is compared as a plain prefix: it matches
// system_zoneinfo too.
inline constexpr char legacy_icu_data[] = "/var/db/icu";         // deleted
inline constexpr char legacy_icu_link[] = "/var/db/icutz";       // migrated and removed
inline constexpr char legacy_zoneinfo[] = "/usr/share/zoneinfo"; // where localtime pointed

// What only quorrel-status looks at.
inline constexpr char etc_localtime[] = "/etc/localtime"; // where programs find the local zone
inline constexpr char etc_timezone[] = "/etc/timezone";   // its name, on some systems
inline constexpr char zone_source_file[] = "/tzdata.zi";  // in a tree: what zic built it from
inline constexpr char systemd[] = "/run/systemd/system";  // exists where systemd is process 1
inline constexpr char unit_mask[] = "/etc/systemd/system/quorrel.service"; // to /dev/null if masked
inline constexpr char trace_of_run[] = "/run/quorrel";                     // left by the unit
inline constexpr char var_db[] = "/var/db";
inline constexpr char data[] = "/var/db/timezone";
inline constexpr char updates[] = "/var/db/timezone/tz";

} // namespace quorrel::paths
