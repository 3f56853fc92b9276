#ifndef VURO_TAPP_PORTAL_UPDATE_H
#define VURO_TAPP_PORTAL_UPDATE_H

#include <list>
#include <string>

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// Application portal update record, carried in the private data of a
/// download content descriptor: an 8-bit app-id loop length, then entries of
/// host_length (8) host bytes application_id (64), then
/// app_major_version (8) app_minor_version (8) app_size (32)
/// app_patch_size (32) and the optional min- and max-installed version pairs.
/// The object owns its entries.
class TAppPortalUpdate {
public:
    /// One application the update is for.
    struct AppID {
        std::string id;   ///< the 64-bit application id in decimal digits
        std::string host; ///< the host bytes, one character per byte
    };

    TAppPortalUpdate();
    TAppPortalUpdate(const TAppPortalUpdate&) = delete;
    TAppPortalUpdate& operator=(const TAppPortalUpdate&) = delete;
    /// Deletes the entries.
    virtual ~TAppPortalUpdate();

    /// Empty data fails (ERROR_INVALID_DATA_LENGTH). An empty app-id loop
    /// returns the object with every field zero and leaves errorCode as it
    /// was; so does every other success. A record whose fields run past
    /// dataLength fails with ERROR_INVALID_DATA_LENGTH.
    static TAppPortalUpdate* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U16* errorCode);

    /// A new list (the caller deletes it) of the entries in data order; the
    /// entries stay with this object.
    std::list<AppID*>* getIds();

    VURO_U8 getMajorVersion() const { return app_major_version; }
    VURO_U8 getMinorVersion() const { return app_minor_version; }
    VURO_U32 getSize() const { return app_size; }
    VURO_U32 getPatchSize() const { return app_patch_size; }
    /// "Intalled": the receiver API's spelling, kept for its callers.
    VURO_U8 getMinIntalledMajorVersion() const { return app_min_installed_major_version; }
    VURO_U8 getMinInstalledMinorVersion() const { return app_min_installed_minor_version; }
    VURO_U8 getMaxIntalledMajorVersion() const { return app_max_installed_major_version; }
    VURO_U8 getMaxInstalledMinorVersion() const { return app_max_installed_minor_version; }

private:
    std::list<AppID*> appIds;
    VURO_U8 app_major_version;
    VURO_U8 app_minor_version;
    VURO_U32 app_size;
    VURO_U32 app_patch_size;
    VURO_U8 app_min_installed_major_version;
    VURO_U8 app_min_installed_minor_version;
    VURO_U8 app_max_installed_major_version;
    VURO_U8 app_max_installed_minor_version;
};

} // namespace Vuro

#endif
