#pragma once

// Every path that the program knows, as the directory trees that they form. All of them are fixed
// when the program is built: nothing can point it elsewhere.
namespace quorrel::paths
{

// /usr/share: the system partition, read only.
//
//     zoneinfo                 where the localtime link used to point; any path that begins so
//                              counts, the next one too
//     zoneinfo.default/        the system partition's zoneinfo tree
//         +VERSION             its tz release, for example 2024a
//     icu/                     the system partition's ICU data
//         icutzformat.txt      the schema of that data, for example 44l
inline constexpr char older_zoneinfo[] = "/usr/share/zoneinfo";
inline constexpr char system_zoneinfo[] = "/usr/share/zoneinfo.default";
inline constexpr char system_icu[] = "/usr/share/icu";

// /var/db: what this program publishes, and what the update agent installs.
//
//     icu, icutz               the older layout; deleted
//     timezone/
//         zoneinfo             link to the zoneinfo tree in use
//         icutz                link to the ICU data in use; absent for the system partition's
//         localtime            link to the local zone's file, through zoneinfo
//         needs_cleanup        marker: this start put data out of use
//         TZVersionDiffRecord  the last activation, as OLD_NEW
//         tz_latest            link to the newest update; the agent's, never written here
//         tz/                  installed updates; the agent's, never written here
//             2024b.1.0/       one of them, named by its version string
//                 zoneinfo/    its zoneinfo tree, with +VERSION
//                 icutz/       its ICU data, a file such as icutz44l.dat
inline constexpr char older_icu[] = "/var/db/icu";
inline constexpr char older_icu_link[] = "/var/db/icutz";
inline constexpr char data_directory[] = "/var/db/timezone/";
inline constexpr char zoneinfo_link[] = "/var/db/timezone/zoneinfo";
inline constexpr char icu_link[] = "/var/db/timezone/icutz";
inline constexpr char localtime_link[] = "/var/db/timezone/localtime";
inline constexpr char needs_cleanup[] = "/var/db/timezone/needs_cleanup";
inline constexpr char version_diff_record[] = "/var/db/timezone/TZVersionDiffRecord";
inline constexpr char latest_update_link[] = "/var/db/timezone/tz_latest";
inline constexpr char update_directory[] = "/var/db/timezone/tz/";

// Below an update directory.
inline constexpr char update_zoneinfo[] = "/zoneinfo";
inline constexpr char update_icu[] = "/icutz";

// Below a zoneinfo tree and the system partition's ICU data.
inline constexpr char release_file[] = "/+VERSION";
inline constexpr char icu_format_file[] = "/icutzformat.txt";

} // namespace quorrel::paths
