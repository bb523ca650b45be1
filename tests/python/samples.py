"""What several tests of the module share: files with known values."""
import pathlib
import tempfile

import numpy as np


def grid_text(dimensions, fields):
    """A VTK legacy file of a grid with steps of 1, and fields with a value for each point, the first index being the quickest."""
    count = int(np.prod(dimensions))
    text = '# vtk DataFile Version 3.0\nsample\nASCII\nDATASET STRUCTURED_GRID\nDIMENSIONS ' + ' '.join(map(str, dimensions))
    text += f'\nPOINTS {count} double\n'
    for k in range(dimensions[2]):
        for j in range(dimensions[1]):
            for i in range(dimensions[0]):
                text += f'{i} {j} {k}\n'
    text += f'POINT_DATA {count}\n'
    for name, values in fields.items():
        text += f'SCALARS {name} double 1\nLOOKUP_TABLE default\n' + ' '.join(repr(float(value)) for value in values) + '\n'
    return text


def write_raw_image(folder, name, dimensions, values=None):
    """A MetaImage file of floats with its values in a file of their own, which is sparse without values. Returns its path."""
    raw = folder / (name + '.raw')
    if values is None:
        with open(raw, 'wb') as file:
            file.truncate(4 * int(np.prod(dimensions, dtype=np.int64)))
    else:
        raw.write_bytes(np.asarray(values, dtype='<f4').tobytes(order='F'))
    header = folder / (name + '.mhd')
    header.write_text('ObjectType = Image\nNDims = 3\nDimSize = ' + ' '.join(map(str, dimensions)) +
                      f'\nElementType = MET_FLOAT\nElementByteOrderMSB = False\nElementDataFile = {raw.name}\n')
    return header


class Folder:
    """A folder for the files of a test, which goes with it."""

    def __init__(self, test):
        holder = tempfile.TemporaryDirectory()
        test.addCleanup(holder.cleanup)
        self.path = pathlib.Path(holder.name)

    def grid(self, name='grid.vtk', dimensions=(4, 3, 2), **fields):
        count = int(np.prod(dimensions))
        fields = fields or {'p': np.arange(count), 'q': np.arange(count) ** 2}
        path = self.path / name
        path.write_text(grid_text(dimensions, fields))
        return path
