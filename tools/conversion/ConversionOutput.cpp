// SPDX-License-Identifier: MIT
#include "conversion/ConversionOutput.h"

#include "Failure.h"
#include "conversion/SystemPaths.h"
#include "conversion/OutputChecks.h"
#include "conversion/PictureSeries.h"
#include "conversion/SingleOutput.h"

std::unique_ptr<ConversionOutput> OpenOutput(const OutputRequest& request) {
    if (!request.path.has_filename()) throw Failure("the output needs the name of a file");
    RequireFolder(FolderOf(request.path));
    if (request.isPictures) {
        if (const auto pattern = ReadPattern(Utf8FromSystemPath(request.path.filename())))
            return std::make_unique<PictureSeries>(request, *pattern);
    }
    return std::make_unique<SingleOutput>(request);
}
