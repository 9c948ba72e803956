// Objects and bytes under names of the named object dictionary.
#include "KxAcDb.h"
#include "KxMessages.h"
#include "Opened.h"
#include "ResBufChain.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

namespace KxArxBase {

namespace {

const short kLengthGroup = 90;
const short kBytesGroup = 310;
const long kChunk = 126;   // bytes per chunk

// Length in bytes, then the chunks. A length that is a multiple of the chunk's ends in an empty one.
bool BuildBlob(const char* bytes, long length, ResBufChain& chain)
{
    if (!chain.Append(acutBuildList(kLengthGroup, int(length), 0)))
        return false;
    for (long chunk = 0; chunk <= length / kChunk; ++chunk) {
        ads_binary piece;
        piece.clen = short(std::min(length - chunk * kChunk, kChunk));
        piece.buf = const_cast<char*>(bytes) + chunk * kChunk;
        if (!chain.Append(acutBuildList(kBytesGroup, &piece, 0)))
            return false;
    }
    return true;
}

// The number of bytes that the chunks hold, or less than zero for a chain of another kind.
long BlobSize(const resbuf* chain)
{
    if (chain->restype != kLengthGroup)
        return -1;
    long size = 0;
    for (const resbuf* piece = chain->rbnext; piece != nullptr; piece = piece->rbnext) {
        if (piece->restype != kBytesGroup || piece->resval.rbinary.clen < 0)
            return -1;
        size += piece->resval.rbinary.clen;
    }
    return size;
}

// Null when there is no memory.
void* JoinBlob(const resbuf* chain, long length)
{
    char* bytes = static_cast<char*>(std::malloc(size_t(std::max(length, 1L))));
    if (bytes == nullptr)
        return nullptr;
    long done = 0;
    for (const resbuf* piece = chain->rbnext; piece != nullptr && done < length; piece = piece->rbnext) {
        const long count = std::min(long(piece->resval.rbinary.clen), length - done);
        if (count > 0)
            std::memcpy(bytes + done, piece->resval.rbinary.buf, size_t(count));
        done += count;
    }
    return bytes;
}

}   // namespace

Acad::ErrorStatus CKxAcDb::NODOpenObject(const wchar_t* key, AcDbObject*& obj, AcDb::OpenMode mode)
{
    obj = nullptr;
    AcDbDictionary* opened = nullptr;
    const Acad::ErrorStatus es = Reported([&] { return GetAcDb()->getNamedObjectsDictionary(opened, AcDb::kForRead); });
    if (es != Acad::eOk)
        return es;
    return Opened<AcDbDictionary>(opened, es)->getAt(key, obj, mode);
}

Acad::ErrorStatus CKxAcDb::NODAddObject(const wchar_t* key, AcDbObject*& obj, AcDbObjectId* id, int closeIt)
{
    if (id != nullptr)
        id->setNull();
    AcDbDictionary* opened = nullptr;
    Acad::ErrorStatus es = Reported([&] { return GetAcDb()->getNamedObjectsDictionary(opened, AcDb::kForWrite); });
    AcDbObjectId added;
    if (es == Acad::eOk)
        es = Opened<AcDbDictionary>(opened, es)->setAt(key, obj, added);
    if (es == Acad::eOk && id != nullptr)
        *id = added;
    if (closeIt == 0 || obj == nullptr)
        return es;
    if (es == Acad::eOk) {
        obj->close();
    } else {
        delete obj;
        obj = nullptr;
    }
    return es;
}

Acad::ErrorStatus CKxAcDb::NODRemoveObject(const wchar_t* key)
{
    AcDbDictionary* opened = nullptr;
    const Acad::ErrorStatus es =
        Reported([&] { return GetAcDb()->getNamedObjectsDictionary(opened, AcDb::kForWrite); });
    if (es != Acad::eOk)
        return es;
    return Opened<AcDbDictionary>(opened, es)->remove(key);
}

Acad::ErrorStatus CKxAcDb::NODAddData(const wchar_t* key, void* data, long length, int overwrite)
{
    if (length < 0 || length > std::numeric_limits<int32_t>::max() || (data == nullptr && length > 0))
        return Acad::eInvalidInput;
    AcDbObject* opened = nullptr;
    Acad::ErrorStatus es = NODOpenObject(key, opened, AcDb::kForWrite);
    if (es == Acad::eOk) {
        Opened<AcDbObject> old(opened, es);
        if (overwrite == 0)
            return Acad::eWrongObjectType;
        const AcDbObjectId id = old->objectId();
        old.Close();
        es = EraseObject(id, 0);
        if (es != Acad::eOk)
            return es;
    } else if (es != Acad::eKeyNotFound) {
        return es;
    }
    ResBufChain chain;
    if (!BuildBlob(static_cast<const char*>(data), length, chain))
        return Acad::eOutOfMemory;
    auto record = std::make_unique<AcDbXrecord>();
    es = record->setFromRbChain(*chain.get());
    if (es != Acad::eOk)
        return es;
    AcDbObject* object = record.release();
    return NODAddObject(key, object, nullptr, 1);
}

Acad::ErrorStatus CKxAcDb::NODReadData(const wchar_t* key, void*& data, long& length)
{
    AcDbObject* opened = nullptr;
    Acad::ErrorStatus es = NODOpenObject(key, opened, AcDb::kForRead);
    if (es != Acad::eOk)
        return es;
    Opened<AcDbObject> object(opened, es);
    const AcDbXrecord* record = AcDbXrecord::cast(object.get());
    if (record == nullptr)
        return Acad::eWrongObjectType;
    resbuf* values = nullptr;
    es = record->rbChain(&values);
    const ResBufChain chain(values);
    if (es != Acad::eOk || values == nullptr)
        return es;
    const long stored = values->resval.rlong;
    if (BlobSize(values) < 0 || stored < 0 || stored > BlobSize(values))
        return Acad::eInvalidResBuf;
    void* bytes = JoinBlob(values, stored);
    if (bytes == nullptr)
        return Acad::eOutOfMemory;
    data = bytes;
    length = stored;
    return Acad::eOk;
}

}   // namespace KxArxBase
