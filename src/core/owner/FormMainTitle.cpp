#include "core/owner/FormMainTitle.h"

namespace travo {

QString FormMainTitle(const TitleNotes& notes) {
    QString title = QStringLiteral("TRAVO");
    if (notes.isObjectiveRaised) {
        title += QStringLiteral(" - objective raised for the Z point");
    }
    return title;
}

}  // namespace travo
