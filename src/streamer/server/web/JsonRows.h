#pragma once
#include "JsonText.h"

#include <kelo/KeloRowBlock.h>

/// Writes the rows of a block into a document, each as an object of its roles; those without a
/// value are left out. What all rows share is encoded once. On the document's thread.
class JsonRows
{
public:
    /// `roles` are those of the block's columns, or of the first ones.
    JsonRows(const KeloRowBlock& block, const QStringList& roles, const TextCatalogue* texts);
    void write(JsonText& json) const;

private:
    /// A column or a field of a hash.
    struct Part
    {
        QString name;
        std::string key;         ///< encoded; in a hash behind the shared fields before it
        std::string shared;      ///< encoded value, where it is shared
        int own = -1;            ///< place among the row's own values; negative: not own
        std::vector<Part> parts; ///< of a hash of shared and own values
    };
    static std::vector<Part> partsOf(const KeloRowBlock::Value& hash, const TextCatalogue* texts);
    static void writeHash(JsonText& json, const std::vector<Part>& parts, const QVariant* own);

    const KeloRowBlock& m_block;
    std::vector<Part> m_columns;
};
