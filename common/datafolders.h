#ifndef DATAFOLDERS_H
#define DATAFOLDERS_H

#include <QString>

/**
 * The fixed layout of the instrument's data below the home folder of its account.
 *
 * Every path is absolute, ends without a separator and is built afresh on each call. None of the
 * functions looks at the disk.
 */
namespace DataFolders {
/** Name of the account that owns the instrument's data. */
QString account();

/** Log files: /home/ostan/logs. */
QString logs();

/** Graph definitions: /home/ostan/graph_definitions. */
QString graphDefinitions();

/** Configurations: /home/ostan/configs. */
QString configurations();

/** Soil-flux data, a folder inside the logs: /home/ostan/logs/soil. */
QString soilFlux();

/** Automatic programs: /home/ostan/autoprogs. */
QString scripts();
} // namespace DataFolders

#endif // DATAFOLDERS_H
