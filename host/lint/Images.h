#pragma once

#include "BundleFacts.h"

namespace host {

/// Decodes every image of the bundle in a child process, into `images`.
void inspectImages(const BundleContents&, BundleFacts&);

}
