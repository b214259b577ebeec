// SPDX-License-Identifier: MIT
// Fills the report of a load while the load is under way. An ordinary load has none of these.
#pragma once

#include "catalogue/Filing.h"
#include "icons/IconNotes.h"
#include "kmLoadReport.h"
#include "platform/Files.h"
#include "xml/Messages.h"

class LoadNotes {
public:
    LoadNotes(kmLoadReport& report, bool isSilent) : m_report(report), m_isSilent(isSilent) {}
    LoadNotes(const LoadNotes&) = delete;
    LoadNotes& operator=(const LoadNotes&) = delete;

    // Whether the load sends no messages.
    bool IsSilent() const { return m_isSilent; }

    // Folders come in the order of the load, the profiles folder first.
    void AddListing(const kmString& folder, bool isComplete, const ListingNotes& listing);
    void AddFile(const kmString& folder, const kmString& name, const XMLParseResult& result,
                 FilingResult filed);
    void AddIcons(const IconNotes& icons);

    // To be called once, after the load.
    void Finish();

private:
    kmLoadFinding& Add(LOAD_FAULT fault, const kmString& path);
    void AddXMLFault(const kmString& path, const XMLParseResult& result);
    void AddIconFile(const IconFileNotes& file);

    kmLoadReport& m_report;
    bool m_isSilent;
};
