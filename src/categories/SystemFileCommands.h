#pragma once

#include "macroengine/CMacroCategoryBase.h"
#include "platform/Directory.h"

namespace macroengine {

/// `system.file_write(mode, file, text)`: writes a text, mode 0 over what the file holds, mode 1 behind it.
class CMacroCategoryCmdSystem_FileWrite : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

/// `system.mkdir(directory)`: makes a folder whose parent exists. One that is there already is fine.
class CMacroCategorySystem_MkDir : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;
};

/// `name = system.find_file(pattern, 0)` gives the first matching name, `system.find_file(pattern, 1)` the
/// next one, and the empty text after the last. There is one search in progress in a macro file.
class CMacroCategorySystemFindFile : public CMacroCategoryBase {
public:
    using CMacroCategoryBase::CMacroCategoryBase;
    bool Run(CMacroPropertyIF* property) override;

private:
    platform::FolderSearch search_;
};

}  // namespace macroengine
