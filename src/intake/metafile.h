// Files that are no media themselves but tell where some is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// True for a name, or an address with what a server is asked for behind it, of a file that only tells of
/// others: ASX, WAX, WVX.
bool isMetafile(std::string_view name);

/// The playable addresses that such a file has, in its order: the `href` of each Ref and Entryref of an ASX
/// (elements and attributes in any case, entities resolved), or the lines "Ref1=" of a list of references.
std::vector<std::string> metafileAddresses(std::string_view text);

}  // namespace kvo
