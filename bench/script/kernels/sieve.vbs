Sub Main()
if not parentform.checkforevents then err.raise 1001
DIM flags(1000000)
if not parentform.checkforevents then err.raise 1001
count = 0
if not parentform.checkforevents then err.raise 1001
for i = 2 to 1000000
if not parentform.checkforevents then err.raise 1001
flags(i) = 1
if not parentform.checkforevents then err.raise 1001
NEXT '
if not parentform.checkforevents then err.raise 1001
for i = 2 to 1000000
if not parentform.checkforevents then err.raise 1001
IF flags(i) = 1 THEN
if not parentform.checkforevents then err.raise 1001
count = count + 1
if not parentform.checkforevents then err.raise 1001
k = i + i
if not parentform.checkforevents then err.raise 1001
WHILE k < 1000001
if not parentform.checkforevents then err.raise 1001
flags(k) = 0
if not parentform.checkforevents then err.raise 1001
k = k + i
if not parentform.checkforevents then err.raise 1001
WEND
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
NEXT '
if not parentform.checkforevents then err.raise 1001
parentform.PrintString count
End Sub
