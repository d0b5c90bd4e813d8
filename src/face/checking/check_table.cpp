#include "face/checking/check_table.h"

namespace cardwright {

namespace {

constexpr Severity kError = Severity::error;
constexpr Severity kWarning = Severity::warning;

constexpr CheckRow kRows[] = {
    {Check::droppedBytes, "dropped-bytes", kError, "bytes that are nothing in the file's encoding",
     "VERSION:4.0\nFN:\xC3\xA9\xC3\xA9\xC3\xA9\xFF"},
    {Check::separators, "separators", kWarning, "line ends that are more than CR LF",
     "VERSION:4.0\r\nFN:a\r"},
    {Check::softBreak, "soft-break", kError, "a soft break without a blank on the next line",
     "VERSION:2.1\nN:a\nNOTE;ENCODING=QUOTED-PRINTABLE:a=\nb"},
    {Check::memberEntities, "member-entities", kError, "group members glued together",
     "VERSION:3.0\nFN:a\nN:a;;;;\nUID:m\n"
     "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:m&#13;&#10;X-ADDRESSBOOKSERVER-MEMBER:mailto:b@c"},
    {Check::gluedNote, "glued-note", kError, "a property glued to the end of a note",
     "VERSION:3.0\nFN:a\nN:a;;;;\nNOTE:bX-ABLABEL:c"},
    {Check::noteEntities, "note-entities", kWarning, "line breaks of a note as numeric references",
     "VERSION:4.0\nFN:a\nNOTE:b&#13;&#10;c"},
    {Check::mergedProperties, "merged-properties", kError, "several properties on one line",
     "VERSION:4.0\nFN:a\nTEL:+15550100EMAIL:b"},
    {Check::tornFragment, "torn-fragment", kError, "a torn-off header at the end of a value",
     "VERSION:4.0\nFN:a\nADR:;;Main StreetX-ABLABEL"},
    {Check::repeatedProperty, "repeated-property", kWarning,
     "a bookkeeping property that the card has already",
     "VERSION:4.0\nFN:a\nX-CREATED:20240203T101112Z\nX-CREATED:20240203T101112Z"},
    {Check::outsideCard, "outside-card", kWarning, "text outside of cards",
     "BEGIN:VCARD\nVERSION:4.0\nFN:a\nEND:VCARD\nhello"},
    {Check::noName, "no-name", kError, "a line without a name, which is dropped",
     "VERSION:4.0\nFN:a\n:b"},
    {Check::noColon, "no-colon", kError, "a line without a colon, which is dropped",
     "VERSION:4.0\nFN:a\nb"},
    {Check::emptyParameterName, "empty-parameter-name", kError,
     "a parameter without a name, for which the line is dropped", "VERSION:4.0\nFN:a\nNOTE;:b"},
    {Check::emptyParameterValue, "empty-parameter-value", kError,
     "a parameter without a value, for which the line is dropped",
     "VERSION:4.0\nFN:a\nNOTE;X-A=:b"},
    {Check::versionNoText, "version-no-text", kError, "a version that is no text",
     "VERSION:4.0\nVERSION;VALUE=date:a\nFN:a"},
    {Check::behindEnd, "behind-end", kError, "text behind the end of a card on its line",
     "BEGIN:VCARD\nVERSION:4.0\nFN:a\n"
     "X-ADDRESSBOOKSERVER-A:b;END:VCARD;X-ADDRESSBOOKSERVER-B:c"},
    {Check::nestedCard, "nested-card", kError, "a card that begins before the last one ended",
     "BEGIN:VCARD\nVERSION:4.0\nFN:a\nBEGIN:VCARD\nEND:VCARD"},
    {Check::noEnd, "no-end", kError, "a card without END:VCARD", "BEGIN:VCARD\nVERSION:4.0\nFN:a"},
    {Check::otherProperty, "other-version-property", kWarning,
     "a property that the version does not have", "VERSION:4.0\nFN:a\nMAILER:b"},
    {Check::unknownProperty, "unknown-property", kWarning,
     "a property that no version has and no X- marks", "VERSION:4.0\nFN:a\nFOO:b"},
    {Check::otherParameter, "other-version-parameter", kWarning,
     "a parameter that the version does not have", "VERSION:3.0\nFN:a\nN:a;;;;\nTEL;PREF=1:1"},
    {Check::unknownParameter, "unknown-parameter", kWarning,
     "a parameter that no version has and no X- marks", "VERSION:4.0\nFN:a\nTEL;FOO=b:1"},
    {Check::otherType, "other-version-type", kWarning, "a type that the version does not have",
     "VERSION:4.0\nFN:a\nTEL;TYPE=isdn:1"},
    {Check::otherEncoding, "other-version-encoding", kError,
     "an encoding that the version does not have",
     "VERSION:3.0\nFN:a\nN:a;;;;\nPHOTO;ENCODING=BASE64:AAAA"},
    {Check::unknownEncoding, "unknown-encoding", kError, "an encoding that no version has",
     "VERSION:3.0\nFN:a\nN:a;;;;\nPHOTO;ENCODING=hex:00"},
    {Check::otherValue, "other-version-value", kWarning,
     "a type of value that the version does not have",
     "VERSION:3.0\nFN:a\nN:a;;;;\nX-A;VALUE=integer:1"},
    {Check::missingVersion, "missing-version", kError, "no VERSION", "FN:a\nN:a;;;;"},
    {Check::missingFn, "missing-fn", kError, "no FN, which the version asks for",
     "VERSION:4.0\nN:a;;;;"},
    {Check::missingN, "missing-n", kError, "no N, which the version asks for", "VERSION:3.0\nFN:a"},
    {Check::tooMany, "too-many", kWarning, "more of a property than the version allows",
     "VERSION:4.0\nFN:a\nBDAY:20240203\nBDAY:20240204"},
    {Check::badDate, "bad-date", kError, "a date that cannot be understood",
     "VERSION:4.0\nFN:a\nBDAY:someday"},
    {Check::badOffset, "bad-offset", kError, "an offset that cannot be understood",
     "VERSION:3.0\nFN:a\nN:a;;;;\nTZ:EST"},
    {Check::badPosition, "bad-position", kError, "a position that cannot be understood",
     "VERSION:3.0\nFN:a\nN:a;;;;\nGEO:here"},
    {Check::badBase64, "bad-base64", kError, "damaged base64",
     "VERSION:3.0\nFN:a\nN:a;;;;\nPHOTO;ENCODING=b:AAA"},
    {Check::badQuotedPrintable, "bad-quoted-printable", kError, "damaged quoted-printable",
     "VERSION:2.1\nN:a\nNOTE;ENCODING=QUOTED-PRINTABLE:a=ZZ"},
    {Check::lostMember, "lost-member", kWarning, "a member that is no card of the file",
     "VERSION:4.0\nFN:a\nKIND:group\nMEMBER:urn:uuid:nobody"},
    {Check::equalUid, "equal-uid", kWarning, "a UID that another card has",
     "BEGIN:VCARD\nVERSION:4.0\nFN:a\nUID:b\nEND:VCARD\nBEGIN:VCARD\nVERSION:4.0\nFN:c\nUID:b\n"
     "END:VCARD"},
};

Check offsetBy(Check first, int number) {
  return static_cast<Check>(static_cast<int>(first) + number - 1);
}

} // namespace

std::span<const CheckRow> checkTable() {
  return kRows;
}

const CheckRow& rowOf(Check check) {
  return kRows[static_cast<std::size_t>(check)];
}

Check checkOf(CleaningRepairKind kind) {
  return offsetBy(Check::separators, static_cast<int>(kind));
}

Check checkOf(DropReason reason) {
  return offsetBy(Check::outsideCard, static_cast<int>(reason));
}

} // namespace cardwright
