#include "nmain/json/detail/TextReader.h"

#include "nmain/stream/InputStream.h"

namespace nurel::json {

namespace {

constexpr std::size_t BYTE_ORDER_MARK_LENGTH = 3;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

} // namespace

bool TextReader::isAtEnd() {
    if (mPosition < mLength)
        return false;
    mPosition = 0;
    mLength = mStream.read(mBuffer.data(), mBuffer.size());
    return mLength == 0;
}

void TextReader::advance() {
    const char byte = mBuffer[mPosition++];
    if (mRead == 0)
        mMarked = byte == '\xEF';
    ++mRead;
    mLastCharacter = byte;

    if (mRead > 1 && isContinuation(byte))
        return; // the rest of a character, which has its place already
    mBeforeLast = mLast;
    mLast = mNext;
    if (byte == '\n') {
        ++mNext.line;
        mNext.column = 1;
    } else if (!mMarked || mRead > BYTE_ORDER_MARK_LENGTH) {
        ++mNext.column;
    }
}

TextReader::Place TextReader::getPlace(std::size_t index) const {
    if (index >= mRead)
        return mNext;
    return index + 1 == mRead ? mLast : mBeforeLast;
}

} // namespace nurel::json
