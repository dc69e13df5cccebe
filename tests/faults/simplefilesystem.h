#ifndef SIMPLEFILESYSTEM_H
#define SIMPLEFILESYSTEM_H

/**
 * From now on every file system refuses this thread what those of sticks don't know: files without
 * a name, links, renaming unless the name is taken, and copying without a look at the bytes. Qt
 * then copies in blocks, to a file whose name it changes at the end.
 */
void makeFileSystemsSimple();

#endif // SIMPLEFILESYSTEM_H
