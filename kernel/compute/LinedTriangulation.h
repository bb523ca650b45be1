#pragma once

#include "kernel/base/BlockMemory.h"
#include "kernel/base/Watch.h"
#include "kernel/compute/PlaneTriangulation.h"

namespace veldraw::kernel::plane {

/// The memory of the triangulation that a thread works on.
inline thread_local BlockMemory* blocksInUse = nullptr;

/// Gives the library its memory. It has lists of blocks, of which it loses one when there is no memory for the list itself.
template <typename Element>
class BlockAllocator
{
public:
    using value_type = Element;

    BlockAllocator() = default;
    template <typename Other>
    explicit BlockAllocator(BlockAllocator<Other> const&)
    {
    }

    Element* allocate(std::size_t count)
    {
        return isBlock(count) ? static_cast<Element*>(blocksInUse->take(count * sizeof(Element)))
                              : std::allocator<Element>().allocate(count);
    }

    void deallocate(Element* elements, std::size_t count)
    {
        if (!isBlock(count)) {
            std::allocator<Element>().deallocate(elements, count);
        }
    }

private:
    static bool isBlock(std::size_t count) { return count > 1; } // exact numbers are made one by one
};

/// Has the triangulation that this thread works on take its memory from @p blocks.
class UseOfBlocks
{
public:
    explicit UseOfBlocks(BlockMemory& blocks)
        : m_before(blocksInUse)
    {
        blocksInUse = &blocks;
    }

    ~UseOfBlocks() { blocksInUse = m_before; }

    UseOfBlocks(UseOfBlocks const&) = delete;
    UseOfBlocks& operator=(UseOfBlocks const&) = delete;

private:
    BlockMemory* m_before;
};

} // namespace veldraw::kernel::plane

#define CGAL_ALLOCATOR(Element) veldraw::kernel::plane::BlockAllocator<Element> // as CGAL/memory.h says

#include <CGAL/Cartesian_converter.h>
#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Triangulation_face_base_with_info_2.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>
#include <algorithm>
#include <functional>
#include <map>
#include <stack>
#include <stdexcept>

namespace veldraw::kernel::plane {

using Number = PlaneTriangulation::Number;

constexpr Number noNumber = std::numeric_limits<Number>::max();

/// A predicate that looks for a cancel. The library gives no other chance to do so while it inserts one point or edge, which may
/// change all triangles.
template <typename Predicate>
class Watched : public Predicate
{
public:
    using result_type = typename Predicate::result_type;

    explicit Watched(Watch& watch)
        : m_watch(&watch)
    {
    }

    template <typename... Arguments>
    result_type operator()(Arguments const&... arguments) const
    {
        m_watch->count();
        return Predicate::operator()(arguments...);
    }

private:
    Watch* m_watch;
};

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

/// The library's geometry, with a look for a cancel in the predicates of which everything consists.
class Geometry : public Kernel
{
public:
    using Orientation_2 = Watched<Kernel::Orientation_2>;
    using Side_of_oriented_circle_2 = Watched<Kernel::Side_of_oriented_circle_2>;

    explicit Geometry(Watch& watch)
        : m_watch(&watch)
    {
    }

    Orientation_2 orientation_2_object() const { return Orientation_2(*m_watch); }
    Side_of_oriented_circle_2 side_of_oriented_circle_2_object() const { return Side_of_oriented_circle_2(*m_watch); }

private:
    Watch* m_watch;
};

/// What is noted at a triangle.
struct Marks
{
    bool isTaken = false;              ///< away
    bool isReached = false;            ///< by cutOutside()
    std::array<bool, 3> isOfLoops{{}}; ///< its edges are edges of an odd number of loops
};

/// The number of a point; none at first.
struct PointNumber
{
    Number value = noNumber;
};

using VertexBase = CGAL::Triangulation_vertex_base_with_info_2<PointNumber, Geometry>;
using FaceBase =
    CGAL::Triangulation_face_base_with_info_2<Marks, Geometry, CGAL::Constrained_triangulation_face_base_2<Geometry>>;
using Structure = CGAL::Triangulation_data_structure_2<VertexBase, FaceBase>;
/// Has no lines, and is quicker to fill. Its triangles can become those of a triangulation that has some.
using PlainTriangulation = CGAL::Delaunay_triangulation_2<Geometry, Structure>;
using Unlined = CGAL::Constrained_Delaunay_triangulation_2<Geometry, Structure, CGAL::Exact_predicates_tag>;
using VertexHandle = Unlined::Vertex_handle;
using FaceHandle = Unlined::Face_handle;

/// A triangulation that knows of which lines the edges of its triangles are, also where lines cross: the library's own
/// notes on that would neither give their memory back nor stay whole where there is no more of it.
class LinedTriangulation : public Unlined
{
public:
    /// An edge of lines, which becomes a chain of pieces where there are points on it.
    struct Line
    {
        VertexHandle from;
        VertexHandle to;
        bool isOfLoops; ///< of an odd number of them
    };

    /// Gets a point at which lines cross and which has no number, with the one of them that was inserted before.
    using OnCrossing = std::function<void(VertexHandle, Line const&)>;

    explicit LinedTriangulation(Geometry const& geometry)
        : Unlined(geometry)
    {
    }

    /// Exchanges all points and triangles with another triangulation, while there are no lines.
    void swapPoints(PlainTriangulation& other) { Triangulation::swap(other); }

    /// Makes a line a chain of edges. @param line lives as long as the object
    void insertLine(Line const& line, OnCrossing const& onCrossing)
    {
        m_onCrossing = &onCrossing;
        putOff({line.from, line.to, line.isOfLoops, &line});
        while (!m_putOff.empty()) {
            Piece const piece = m_putOff.top();
            m_putOff.pop();
            insertChain(piece);
        }
    }

    /// Calls @p body with all edges of an odd number of loops, with the triangle at either side. It goes through all triangles, since
    /// to find an edge at a point of many takes as many steps.
    template <typename Body>
    void forLoops(Watch& watch, Body const& body)
    {
        std::size_t sides = 0;
        for (FaceHandle const face : all_face_handles()) {
            watch.count(3);
            for (int index = 0; index < 3 && !m_pieces.empty(); ++index) {
                if (face->is_constrained(index)) {
                    ++sides;
                    if (pieceAt(face->vertex(cw(index)), face->vertex(ccw(index))).isOfLoops) {
                        body(face, index);
                    }
                }
            }
        }
        if (sides != 2 * m_pieces.size()) {
            throw std::logic_error("An edge of a line is none of a triangle.");
        }
    }

protected:
    /// Called by the library where an edge that is being inserted crosses the edge of a line. The edge of the line goes, and its two
    /// pieces are inserted later like any others: rounding may have put the crossing beyond the triangles beside it, and the pieces
    /// cross others then. They come to an end, since each piece has a smaller bounding box than the whole.
    VertexHandle intersect(Face_handle face, int index, VertexHandle from, VertexHandle to) override
    {
        Piece const crossed = pieceAt(face->vertex(cw(index)), face->vertex(ccw(index)));
        Point const place = placeOfCrossing(from->point(), to->point(), crossed.from->point(), crossed.to->point());
        for (VertexHandle const end : {crossed.from, crossed.to}) {
            if (end->point() == place) {
                return end;
            }
        }
        remove_constrained_edge(face, index);
        m_pieces.erase(endsOf(crossed.from, crossed.to));
        VertexHandle const crossing = insertCrossing(place, face, *crossed.line);
        putOffParts(crossed, crossing);
        return crossing;
    }

private:
    /// An edge of triangles that is one of lines.
    struct Piece
    {
        VertexHandle from;
        VertexHandle to;
        bool isOfLoops;
        Line const* line; ///< the first of those that it is of
    };

    static std::pair<Number, Number> endsOf(VertexHandle a, VertexHandle b)
    {
        return std::minmax({a->info().value, b->info().value});
    }

    /// The crossing of two edges, computed exactly, rounded, and kept within their bounding boxes.
    static Point placeOfCrossing(Point const& from, Point const& to, Point const& first, Point const& second)
    {
        using Exact = Kernel::Exact_kernel;
        CGAL::Cartesian_converter<Kernel, Exact> const toExact;
        Exact::Vector_2 const way = toExact(to) - toExact(from);
        Exact::Vector_2 const across = toExact(second) - toExact(first);
        Exact::FT const share =
            CGAL::determinant(toExact(first) - toExact(from), across) / CGAL::determinant(way, across);
        Exact::Point_2 const place = toExact(from) + share * way;
        CGAL::Bbox_2 const one = from.bbox() + to.bbox();
        CGAL::Bbox_2 const other = first.bbox() + second.bbox();
        return {std::clamp(CGAL::to_double(place.x()), std::max(one.xmin(), other.xmin()),
                           std::min(one.xmax(), other.xmax())),
                std::clamp(CGAL::to_double(place.y()), std::max(one.ymin(), other.ymin()),
                           std::min(one.ymax(), other.ymax()))};
    }

    /// Inserts the point at which lines cross. By rounding it may come to be a point that is there, or on the edge of another line.
    /// @param start where the search begins
    VertexHandle insertCrossing(Point const& place, FaceHandle start, Line const& first)
    {
        Locate_type type{};
        int index = 0;
        FaceHandle const face = locate(place, type, index, start);
        bool const isOnLine = type == EDGE && face->is_constrained(index);
        Piece const halved = isOnLine ? pieceAt(face->vertex(cw(index)), face->vertex(ccw(index))) : Piece{};
        VertexHandle const crossing = insert(place, type, face, index);
        if (crossing->info().value == noNumber) {
            (*m_onCrossing)(crossing, first);
        }
        if (isOnLine) {
            m_pieces.erase(endsOf(halved.from, halved.to));
            addPiece({halved.from, crossing, halved.isOfLoops, halved.line});
            addPiece({crossing, halved.to, halved.isOfLoops, halved.line});
        }
        return crossing;
    }

    Piece const& pieceAt(VertexHandle from, VertexHandle to) const
    {
        auto const piece = m_pieces.find(endsOf(from, to));
        if (piece == m_pieces.end()) {
            throw std::logic_error("An edge of no line was taken for one.");
        }
        return piece->second;
    }

    /// Notes that an edge of triangles is one of a line, or of one more.
    void addPiece(Piece const& fresh)
    {
        auto const [at, isNew] = m_pieces.try_emplace(endsOf(fresh.from, fresh.to), fresh);
        if (!isNew) {
            at->second.isOfLoops = at->second.isOfLoops != fresh.isOfLoops;
        }
    }

    void putOff(Piece const& piece)
    {
        if (piece.from != piece.to) {
            m_putOff.push(piece);
        }
    }

    /// Puts off what a piece consists of on either side of @p middle, which may be an end of it.
    void putOffParts(Piece const& whole, VertexHandle middle)
    {
        putOff({middle, whole.to, whole.isOfLoops, whole.line});
        putOff({whole.from, middle, whole.isOfLoops, whole.line});
    }

    /// Inserts a piece up to the first point on the way, and puts off the rest; puts off all where another line is in the way and
    /// has been crossed.
    void insertChain(Piece const& whole)
    {
        VertexHandle reached;
        if (insertPiece(whole.from, whole.to, reached)) {
            addPiece({whole.from, reached, whole.isOfLoops, whole.line});
            putOff({reached, whole.to, whole.isOfLoops, whole.line});
        } else {
            putOffParts(whole, reached);
        }
    }

    /// Inserts an edge up to the first point on the way. @param reached that point
    /// @return false when another line was in the way and was crossed at @p reached, and the edge is still to be inserted
    bool insertPiece(VertexHandle from, VertexHandle to, VertexHandle& reached)
    {
        FaceHandle face;
        int index = 0;
        if (includes_edge(from, to, reached, face, index)) {
            mark_constraint(face, index);
            return true;
        }
        List_faces crossed;
        List_edges left;
        List_edges right;
        if (find_intersected_faces(from, to, crossed, left, right, reached)) {
            return false;
        }
        triangulate_hole(crossed, left, right);
        return true;
    }

    std::map<std::pair<Number, Number>, Piece> m_pieces;
    std::stack<Piece, std::vector<Piece>> m_putOff; ///< that are to be inserted
    OnCrossing const* m_onCrossing = nullptr;
};

} // namespace veldraw::kernel::plane
