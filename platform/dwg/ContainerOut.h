// Puts sections and objects together to a file. Objects are written while they come, so that no more than a page of
// them is in memory; what depends on them follows, and the file's first bytes come last.
#pragma once
#include "../win/AtomicFile.h"
#include "DwgSections.h"

namespace KxPlat {

class ContainerWriter : public ObjectSink {
public:
    // Takes the sections that do not depend on the objects.
    virtual void Begin(const DwgSections& early) = 0;
    // Takes the rest. The handles are those that the second header of old files repeats, in its order.
    virtual void Finish(const DwgSections& late, const std::vector<uint64_t>& handles) = 0;
};

// For AC1015 and AC1024.
std::unique_ptr<ContainerWriter> NewContainerWriter(AtomicFile& file, const DwgSections& kind);
std::unique_ptr<ContainerWriter> NewFlatWriter(AtomicFile& file, const DwgSections& kind);
std::unique_ptr<ContainerWriter> NewPageWriter(AtomicFile& file, const DwgSections& kind);

// The bytes up to 0x15, which all versions have.
std::string FirstBytes(const DwgSections& kind, uint64_t previewAddress);

// Addresses of pictures in a preview count from the file's first byte; kept, they count from the preview.
std::string MovedPreview(std::string_view preview, int64_t by);

}   // namespace KxPlat
