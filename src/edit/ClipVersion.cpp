#include "edit/ClipVersion.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace tembrel {

namespace {

bool LiesBefore(const SavedBytes* store, std::uint64_t offset, const SavedBytes* otherStore,
                std::uint64_t otherOffset) {
  return store != otherStore ? std::less<>()(store, otherStore) : offset < otherOffset;
}

// The first move that could touch the piece.
std::span<const Relocation>::iterator FirstMoveOf(const ClipPiece& piece, std::span<const Relocation> moves) {
  return std::partition_point(moves.begin(), moves.end(), [&piece](const Relocation& move) {
    const std::uint64_t moveEnd = move.fromOffset + move.length;
    return move.fromStore != piece.saved ? std::less<>()(move.fromStore.get(), piece.saved.get())
                                         : moveEnd <= piece.offset;
  });
}

bool Touches(const Relocation& move, const ClipPiece& piece) {
  return move.fromStore == piece.saved && move.fromOffset < piece.End() &&
         move.fromOffset + move.length > piece.offset;
}

void Append(std::vector<ClipPiece>& pieces, ClipPiece piece) {
  if (piece.length == 0) {
    return;
  }
  if (!pieces.empty() && pieces.back().saved == piece.saved && pieces.back().End() == piece.offset) {
    pieces.back().length += piece.length;
    return;
  }
  pieces.push_back(std::move(piece));
}

void AppendMoved(std::vector<ClipPiece>& pieces, const ClipPiece& piece, std::span<const Relocation> moves) {
  std::uint64_t at = piece.offset;
  for (auto move = FirstMoveOf(piece, moves); move != moves.end() && Touches(*move, piece); ++move) {
    const std::uint64_t start = std::max(at, move->fromOffset);
    const std::uint64_t end = std::min(piece.End(), move->fromOffset + move->length);
    Append(pieces, {piece.saved, at, start - at});
    Append(pieces, {move->toStore, move->toOffset + (start - move->fromOffset), end - start});
    at = end;
  }
  Append(pieces, {piece.saved, at, piece.End() - at});
}

}  // namespace

ClipVersion ClipVersion::Of(const AudioClip& clip) {
  ClipVersion version{clip.format, clip.dataSize, {}};
  Append(version.pieces, {nullptr, 0, clip.dataSize});
  return version;
}

void ClipVersion::Relocate(std::span<const Relocation> moves) {
  const bool touched = std::ranges::any_of(pieces, [moves](const ClipPiece& piece) {
    const auto move = FirstMoveOf(piece, moves);
    return move != moves.end() && Touches(*move, piece);
  });
  if (!touched) {
    return;
  }
  std::vector<ClipPiece> moved;
  moved.reserve(pieces.size() + 2);
  for (const ClipPiece& piece : pieces) {
    AppendMoved(moved, piece, moves);
  }
  pieces = std::move(moved);
}

void ClipVersion::Shift(std::uint64_t offset, std::int64_t distance) {
  std::vector<ClipPiece> shifted;
  shifted.reserve(pieces.size() + 1);
  for (const ClipPiece& piece : pieces) {
    const bool live = piece.saved == nullptr;
    const std::uint64_t staying = !live ? piece.length : offset - std::min(offset, piece.offset);
    const std::uint64_t kept = std::min(piece.length, staying);
    Append(shifted, {piece.saved, piece.offset, kept});
    Append(shifted,
           {piece.saved, piece.offset + kept + static_cast<std::uint64_t>(distance), piece.length - kept});
  }
  pieces = std::move(shifted);
}

void SortRelocations(std::vector<Relocation>& moves) {
  std::ranges::sort(moves, [](const Relocation& one, const Relocation& other) {
    return LiesBefore(one.fromStore.get(), one.fromOffset, other.fromStore.get(), other.fromOffset);
  });
}

}  // namespace tembrel
