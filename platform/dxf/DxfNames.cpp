#include "DxfNames.h"
#include "../db/AcDbEntity.h"
#include "../db/AcDbProxyEntity.h"
#include "../db/AcDbProxyObject.h"
#include "../db/AcDbSymbolTable.h"
#include "../rx/AcRxClass.h"
#include "../win/CodePage.h"
#include <algorithm>
#include <unordered_map>

namespace KxPlat {

namespace {

// All that the oldest files know.
constexpr const char* kOldVars[] = {
    "$ACADVER",    "$ANGBASE",     "$ANGDIR",     "$ATTDIA",    "$ATTMODE",     "$ATTREQ",    "$AUNITS",
    "$AUPREC",     "$AXISMODE",    "$AXISUNIT",   "$BLIPMODE",  "$CECOLOR",     "$CELTYPE",   "$CHAMFERA",
    "$CHAMFERB",   "$CLAYER",      "$COORDS",     "$DIMALT",    "$DIMALTD",     "$DIMALTF",   "$DIMAPOST",
    "$DIMASO",     "$DIMASZ",      "$DIMBLK",     "$DIMBLK1",   "$DIMBLK2",     "$DIMCEN",    "$DIMCLRD",
    "$DIMCLRE",    "$DIMCLRT",     "$DIMDLE",     "$DIMDLI",    "$DIMEXE",      "$DIMEXO",    "$DIMGAP",
    "$DIMLFAC",    "$DIMLIM",      "$DIMPOST",    "$DIMRND",    "$DIMSAH",      "$DIMSCALE",  "$DIMSE1",
    "$DIMSE2",     "$DIMSHO",      "$DIMSOXD",    "$DIMSTYLE",  "$DIMTAD",      "$DIMTFAC",   "$DIMTIH",
    "$DIMTIX",     "$DIMTM",       "$DIMTOFL",    "$DIMTOH",    "$DIMTOL",      "$DIMTP",     "$DIMTSZ",
    "$DIMTVP",     "$DIMTXT",      "$DIMZIN",     "$DRAGMODE",  "$DWGCODEPAGE", "$ELEVATION", "$EXTMAX",
    "$EXTMIN",     "$FASTZOOM",    "$FILLETRAD",  "$FILLMODE",  "$GRIDMODE",    "$GRIDUNIT",  "$HANDLING",
    "$HANDSEED",   "$INSBASE",     "$LIMCHECK",   "$LIMMAX",    "$LIMMIN",      "$LTSCALE",   "$LUNITS",
    "$LUPREC",     "$MAXACTVP",    "$MENU",       "$MIRRTEXT",  "$ORTHOMODE",   "$OSMODE",    "$PDMODE",
    "$PDSIZE",     "$PELEVATION",  "$PEXTMAX",    "$PEXTMIN",   "$PLIMCHECK",   "$PLIMMAX",   "$PLIMMIN",
    "$PLINEGEN",   "$PLINEWID",    "$PSLTSCALE",  "$PUCSNAME",  "$PUCSORG",     "$PUCSXDIR",  "$PUCSYDIR",
    "$QTEXTMODE",  "$REGENMODE",   "$SHADEDGE",   "$SHADEDIF",  "$SKETCHINC",   "$SKPOLY",    "$SNAPANG",
    "$SNAPBASE",   "$SNAPISOPAIR", "$SNAPMODE",   "$SNAPSTYLE", "$SNAPUNIT",    "$SPLFRAME",  "$SPLINESEGS",
    "$SPLINETYPE", "$SURFTAB1",    "$SURFTAB2",   "$SURFTYPE",  "$SURFU",       "$SURFV",     "$TDCREATE",
    "$TDINDWG",    "$TDUPDATE",    "$TDUSRTIMER", "$TEXTSIZE",  "$TEXTSTYLE",   "$THICKNESS", "$TILEMODE",
    "$TRACEWID",   "$UCSNAME",     "$UCSORG",     "$UCSXDIR",   "$UCSYDIR",     "$UNITMODE",  "$USERI1",
    "$USERI2",     "$USERI3",      "$USERI4",     "$USERI5",    "$USERR1",      "$USERR2",    "$USERR3",
    "$USERR4",     "$USERR5",      "$USRTIMER",   "$VIEWDIR",   "$VISRETAIN",   "$WORLDVIEW",
};

struct VarRow {
    AcDb::AcDbDwgVersion since;
    std::vector<std::string_view> names;
};

const VarRow kNewVars[] = {
    {AcDb::kDHL_1015,
     {"$CELWEIGHT",    "$ENDCAPS",      "$JOINSTYLE",     "$LWDISPLAY",   "$INSUNITS",      "$HYPERLINKBASE",
      "$STYLESHEET",   "$XEDIT",        "$CEPSNTYPE",     "$CEPSNID",     "$PSTYLEMODE",    "$FINGERPRINTGUID",
      "$VERSIONGUID",  "$EXTNAMES",     "$PSVPSCALE",     "$OLESTARTUP",  "$DIMADEC",       "$DIMALTRND",
      "$DIMAZIN",      "$DIMDSEP",      "$DIMATFIT",      "$DIMFRAC",     "$DIMLDRBLK",     "$DIMLUNIT",
      "$DIMLWD",       "$DIMLWE",       "$DIMTMOVE",      "$UCSBASE",     "$UCSORTHOREF",   "$UCSORTHOVIEW",
      "$UCSORGTOP",    "$UCSORGBOTTOM", "$UCSORGLEFT",    "$UCSORGRIGHT", "$UCSORGFRONT",   "$UCSORGBACK",
      "$PUCSBASE",     "$PUCSORTHOREF", "$PUCSORTHOVIEW", "$PUCSORGTOP",  "$PUCSORGBOTTOM", "$PUCSORGLEFT",
      "$PUCSORGRIGHT", "$PUCSORGFRONT", "$PUCSORGBACK",   "$TDUCREATE",   "$TDUUPDATE"}},
    {AcDb::kDHL_1018,
     {"$SORTENTS", "$INDEXCTL", "$HIDETEXT", "$XCLIPFRAME", "$HALOGAP", "$OBSCOLOR", "$OBSLTYPE",
      "$INTERSECTIONDISPLAY", "$INTERSECTIONCOLOR", "$DIMASSOC", "$PROJECTNAME", "$LASTSAVEDBY"}},
    {AcDb::kDHL_1021,
     {"$CAMERADISPLAY",
      "$LENSLENGTH",
      "$CAMERAHEIGHT",
      "$STEPSPERSEC",
      "$STEPSIZE",
      "$3DDWFPREC",
      "$PSOLWIDTH",
      "$PSOLHEIGHT",
      "$LOFTANG1",
      "$LOFTANG2",
      "$LOFTMAG1",
      "$LOFTMAG2",
      "$LOFTPARAM",
      "$LOFTNORMALS",
      "$LATITUDE",
      "$LONGITUDE",
      "$NORTHDIRECTION",
      "$TIMEZONE",
      "$LIGHTGLYPHDISPLAY",
      "$TILEMODELIGHTSYNCH",
      "$CMATERIAL",
      "$SOLIDHIST",
      "$SHOWHIST",
      "$DWFFRAME",
      "$DGNFRAME",
      "$REALWORLDSCALE",
      "$INTERFERECOLOR",
      "$INTERFEREOBJVS",
      "$INTERFEREVPVS",
      "$CSHADOW",
      "$SHADOWPLANELOCATION",
      "$DIMFXL",
      "$DIMFXLON",
      "$DIMJOGANG",
      "$DIMTFILL",
      "$DIMTFILLCLR",
      "$DIMARCSYM",
      "$DIMLTYPE",
      "$DIMLTEX1",
      "$DIMLTEX2"}},
    {AcDb::kDHL_1024, {"$DIMTXTDIRECTION"}},
};

AcDb::AcDbDwgVersion FirstVersionOfVar(std::string_view name)
{
    static const auto table = [] {
        std::unordered_map<std::string_view, AcDb::AcDbDwgVersion> versions;
        for (const char* old : kOldVars)
            versions[old] = AcDb::kDHL_1009;
        for (const VarRow& row : kNewVars)
            for (std::string_view later : row.names)
                versions[later] = row.since;
        return versions;
    }();
    const auto place = table.find(name);
    return place == table.end() ? AcDb::kDHL_1012 : place->second;
}

}   // namespace

std::string DxfNameOf(const AcDbObject& object)
{
    if (const AcDbProxyEntity* proxy = AcDbProxyEntity::cast(&object))
        return proxy->dxfName();
    if (const AcDbProxyObject* proxy = AcDbProxyObject::cast(&object))
        return proxy->dxfName();
    return object.fields().dxfName();
}

bool IsPlainObject(const AcDbObject& object)
{
    return !object.isKindOf(AcDbEntity::desc()) && !object.isKindOf(AcDbSymbolTable::desc()) &&
           !object.isKindOf(AcDbSymbolTableRecord::desc());
}

bool IsSectionOf(std::string_view name, AcDb::AcDbDwgVersion version)
{
    if (name == "ACDSDATA")
        return version >= AcDb::kDHL_1027;
    return name != "THUMBNAILIMAGE" || version >= AcDb::kDHL_1015;
}

bool IsHeaderVarOf(std::string_view name, AcDb::AcDbDwgVersion version, AcDb::AcDbDwgVersion from)
{
    return version >= from || version >= FirstVersionOfVar(name);
}

}   // namespace KxPlat
