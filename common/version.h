#ifndef VERSION_H
#define VERSION_H

/**
 * What this build is and what it was made from, as in "filebrowser 1.1.0 (source v1.1.0-3-g1a2b3c4,
 * Qt 5.15.8)". The source is what "git describe" says, "unknown" outside of git.
 *
 * The module carries the text so that it can be read on the device without loading the module.
 */
extern const char versionText[];

#endif // VERSION_H
