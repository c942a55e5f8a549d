#include "base/assets.h"

namespace tavisk {

void provideAssets(Files& files, const std::string& folder) {
    if (!files.folderExists(folder)) files.createFolder(folder);
    const std::string picture = folder + "/cabinet.png";
    if (!files.fileExists(picture)) files.replace(picture, {cabinetPicture()});
    const std::string style = folder + "/style.css";
    if (!files.fileExists(style)) files.replace(style, {stylesheet()});
}

}  // namespace tavisk
