// A heap whose every call takes the same number of instructions, in place of the C library's for
// the program that this is linked into.
//
// What the C library's takes hangs on all that was given and freed before: a line changed in one
// task would change the counts of the next ones by a quarter. The heap only grows; the blocks of a
// size are given again, the last one freed first.

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include <sys/mman.h>

namespace {
const size_t alignment = 16;
const size_t areaSize = size_t(1) << 30; // touched as far as it is used
const size_t smallLimit = 1024; // in steps of the alignment so far, in doubles from here on
const int smallClasses = smallLimit / alignment;
const int classes = smallClasses + 32;

/** In front of each block that is given. */
struct alignas(alignment) Head
{
    Head *next; ///< while the block is free
    int sizeClass;
    int offset; ///< from the head of the whole block, when only its end is given, aligned
};

std::atomic_flag isTaken = ATOMIC_FLAG_INIT;
Head *freeBlocks[classes];
char *area;
size_t used;

class Lock
{
public:
    Lock()
    {
        while (isTaken.test_and_set(std::memory_order_acquire)) {
        }
    }

    ~Lock()
    {
        isTaken.clear(std::memory_order_release);
    }
};

int classOf(size_t size)
{
    if (size <= smallLimit)
        return size == 0 ? 0 : static_cast<int>((size - 1) / alignment);
    int sizeClass = smallClasses;
    for (size_t limit = 2 * smallLimit; limit < size; limit *= 2)
        ++sizeClass;
    return sizeClass;
}

size_t sizeOf(int sizeClass)
{
    return sizeClass < smallClasses ? (sizeClass + 1) * alignment
                                    : 2 * smallLimit << (sizeClass - smallClasses);
}

Head *newBlock(int sizeClass)
{
    if (!area) {
        area = static_cast<char *>(mmap(nullptr, areaSize, PROT_READ | PROT_WRITE,
                                        MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    }
    const size_t size = sizeof(Head) + sizeOf(sizeClass);
    if (area == MAP_FAILED || used + size > areaSize)
        return nullptr;
    Head *const head = reinterpret_cast<Head *>(area + used);
    used += size;
    head->sizeClass = sizeClass;
    return head;
}

Head *headOf(void *memory)
{
    return static_cast<Head *>(memory) - 1;
}

/** A block of at least @p size bytes behind its head. */
Head *take(size_t size)
{
    const int sizeClass = classOf(size);
    const Lock lock;
    Head *head = freeBlocks[sizeClass];
    if (head)
        freeBlocks[sizeClass] = head->next;
    else
        head = newBlock(sizeClass);
    if (head)
        head->offset = 0;
    else
        errno = ENOMEM;
    return head;
}
} // namespace

extern "C" {
void *malloc(size_t size)
{
    Head *const head = take(size);
    return head ? head + 1 : nullptr;
}

void free(void *memory)
{
    if (!memory)
        return;
    Head *head = headOf(memory);
    head = reinterpret_cast<Head *>(reinterpret_cast<char *>(head) - head->offset);
    const Lock lock;
    head->next = freeBlocks[head->sizeClass];
    freeBlocks[head->sizeClass] = head;
}

void *calloc(size_t number, size_t size)
{
    void *const memory = malloc(number * size);
    return memory ? memset(memory, 0, number * size) : nullptr;
}

void *realloc(void *memory, size_t size)
{
    if (!memory)
        return malloc(size);
    const Head *const head = headOf(memory);
    const size_t room = sizeOf(head->sizeClass) - head->offset;
    if (size <= room)
        return memory;
    void *const larger = malloc(size);
    if (larger) {
        memcpy(larger, memory, room);
        free(memory);
    }
    return larger;
}

void *aligned_alloc(size_t boundary, size_t size)
{
    if (boundary <= alignment)
        return malloc(size);
    Head *const head = take(size + boundary);
    if (!head)
        return nullptr;
    const size_t offset = boundary - reinterpret_cast<uintptr_t>(head + 1) % boundary;
    Head *const inside = head + offset / sizeof(Head);
    inside->sizeClass = head->sizeClass;
    inside->offset = static_cast<int>(offset);
    return inside + 1;
}

void *memalign(size_t boundary, size_t size)
{
    return aligned_alloc(boundary, size);
}

int posix_memalign(void **memory, size_t boundary, size_t size)
{
    *memory = aligned_alloc(boundary, size);
    return *memory ? 0 : ENOMEM;
}

size_t malloc_usable_size(void *memory)
{
    return memory ? sizeOf(headOf(memory)->sizeClass) - headOf(memory)->offset : 0;
}
}
