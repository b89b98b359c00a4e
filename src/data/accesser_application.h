#pragma once
// The settings file, Config.xml. Written back whole, by the settings dialogs alone.

#include <string>

#include "data/data_application.h"
#include "data/xml_dom.h"

// The half that describes the product and the installation.
class AccesserFundamental : protected XmlDom {
public:
    using XmlDom::loadError;

    // Elements that are missing leave their fields as they are.
    virtual void read(const xercesc::DOMElement* root, DataApplication& settings);
    virtual void write(xercesc::DOMElement& root, const DataApplication& settings);
};

// The catalogue that the settings name, or `usual` where they name none that is there.
std::string catalogueInUse(const DataApplication& settings, const std::string& usual);

// Both halves.
class AccesserApplication : public AccesserFundamental {
public:
    // 1, or 0 when the file is no settings file: loadError() tells why and the record stays as it was.
    int load(const std::string& path, DataApplication& settings);
    // 1, or 0 when the file could not be written; the old one is then whole. What it holds beside the
    // settings, as that of a later version does, is kept behind them. A file that cannot be understood is put
    // aside first, under its name and ".broken" (with a number where that is taken).
    int save(const std::string& path, const DataApplication& settings);

    void read(const xercesc::DOMElement* root, DataApplication& settings) override;
    void write(xercesc::DOMElement& root, const DataApplication& settings) override;

private:
    // Null when the file is no settings file.
    const xercesc::DOMElement* open(const std::string& path);
};

// Gives the user's settings file, which a delivery leaves alone once it was changed, the half that describes
// the product and the installation from the file that was delivered. Everything else stays as it is; so does
// the whole file where nothing differs, where one of the two cannot be understood, and where it cannot be
// written.
void deliverFundamental(const std::string& shippedFile, const std::string& usersFile);
