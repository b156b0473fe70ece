// SPDX-License-Identifier: MIT
#ifndef KELMORA_DURABLEFILE_H
#define KELMORA_DURABLEFILE_H

#include <KelmoraBaseExport.h>

#include <QByteArray>
#include <QString>

#include <functional>

namespace KELMORA {

// Replaces a file so that it holds either its previous content or the whole
// new one, also after a crash or a power loss, and says so when it cannot.
//
// The new content goes into an unnamed temporary file beside the target
// (a named one where the file system has none), whose every write, flush
// and close is checked; it gets the mode (and, where the process may set
// it, the owner) of the file it replaces, is synced to the disk, given a
// temporary name and renamed over the target. A symbolic link is followed
// and its target replaced. A target that exists and is not a regular file
// (a FIFO, a device, a socket, a directory) is refused and left alone. On
// any failure the temporary file is removed, the previous file is as it
// was, and a KMException names the file:
//   "Cannot open '<file>' for writing: <reason>"  (nothing was written)
//   "Cannot write '<file>': <reason>"             (writing, syncing, renaming)
namespace DurableFile {

// `next` fills its argument with the next piece of the content and returns
// false when there is none left (the argument is then not used).
KELMORABASE_EXPORT void Replace(const QString& fileName,
                                const std::function<bool(QByteArray&)>& next);

} // namespace DurableFile
} // namespace KELMORA

#endif
