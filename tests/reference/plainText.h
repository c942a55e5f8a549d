// The reference's own text helpers: conversion, replacing, reading numbers.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/error.h"

namespace tavisk::reference {

/// A run-time error as the reference sees it: its number.
struct Failure {
    ErrorNumber number;
};

/// A text or page has become longer than a comparison is worth.
struct TooLong {};

/// Every occurrence, from left to right, without overlap.
std::u16string replaceEvery(const std::u16string& text, const std::u16string& what,
                            const std::u16string& with);

/// The length as a 16-bit count.
int count16(const std::u16string& text);

/// The character at a position counted from 1; 0 outside the text.
char16_t charAt(const std::u16string& text, int position);

/// Blanks, sign, digits, fraction, exponent; what follows is ignored; 0 when nothing fits.
double leadingNumberOf(const std::u16string& text);

/// The whole text, outer blanks aside, is one number.
double strictNumberOf(const std::u16string& text);

/// Rounded towards minus infinity into 16 bits.
int floorTo16(double number);

/// Rounded half to even into 16 bits.
int roundTo16(double number);

std::u16string decimal(int number);

std::string utf8Of(const std::u16string& text);
/// `text` is valid UTF-8.
std::u16string utf16Of(const std::string& text);

/// Where each code unit, and the end of the text, lie in the text's UTF-8.
std::vector<std::size_t> byteOffsetsOf(const std::u16string& text);

/// One byte per character; a character that code page 1252 lacks is a failure.
std::string codePage1252Of(const std::u16string& text);

}  // namespace tavisk::reference
